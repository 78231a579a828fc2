// SPDX-License-Identifier: MIT
#include "system/fileidentity.h"

#include "system/windows/handle.h"

#include <algorithm>

namespace halvane {
namespace {

/// In     ticks  of 100 ns since 1601 January 1, 0 h UT, as the system counts
std::int64_t nanoseconds(const LARGE_INTEGER& ticks) {
    constexpr std::int64_t ticks_until_1970 = 116'444'736'000'000'000;
    constexpr std::int64_t tick = 100; // [ns]
    return (ticks.QuadPart - ticks_until_1970) * tick;
}

FileIdentity identity_of(HANDLE handle) {
    FileIdentity identity;
    BY_HANDLE_FILE_INFORMATION entry{};
    FILE_BASIC_INFO times{};
    if (::GetFileInformationByHandle(handle, &entry) == 0 ||
        ::GetFileInformationByHandleEx(handle, FileBasicInfo, &times, sizeof times) == 0)
        return identity;
    const auto joined = [](DWORD high, DWORD low) { return std::uint64_t{high} << 32U | low; };
    identity.exists = true;
    identity.volume = entry.dwVolumeSerialNumber;
    identity.entry = joined(entry.nFileIndexHigh, entry.nFileIndexLow);
    identity.size = static_cast<std::int64_t>(joined(entry.nFileSizeHigh, entry.nFileSizeLow));
    identity.content_changed = nanoseconds(times.LastWriteTime);
    identity.entry_changed = nanoseconds(times.ChangeTime);
    return identity;
}

} // namespace

FileIdentity FileIdentity::of(const std::string& path) {
    const Handle file(open_to_ask(path));
    return file.is_open() ? identity_of(file.get()) : FileIdentity();
}

FileIdentity FileIdentity::of(int descriptor) {
    return identity_of(handle_of(descriptor));
}

bool FileIdentity::settled_at(std::chrono::system_clock::time_point moment) const {
    constexpr std::chrono::seconds step_of_fat(2);         // whole ones are what it keeps of a time
    constexpr std::chrono::milliseconds step_of_clock(40); // twice the slowest one of the system
    const std::chrono::nanoseconds latest(std::max(content_changed, entry_changed));
    const bool is_coarse = latest % step_of_fat == std::chrono::nanoseconds(0);
    const std::chrono::nanoseconds tick = is_coarse ? std::chrono::nanoseconds(step_of_fat) : step_of_clock;
    const std::chrono::nanoseconds age = moment.time_since_epoch() - latest;
    return age > tick || age < -tick;
}

// A file that is kept open could not be replaced by programs that ask for more than this system gives: every
// look is at the path.

void WatchedFile::watch(const std::string& /*path*/) {}

bool WatchedFile::is_still(const FileIdentity& identity, const std::string& path) {
    return FileIdentity::of(path) == identity;
}

void WatchedFile::forget() {}

} // namespace halvane
