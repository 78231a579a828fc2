// SPDX-License-Identifier: MIT
#include "system/filecalls.h"

#include "system/windows/handle.h"
#include "system/windows/widepath.h"

#include <cerrno>
#include <io.h>
#include <thread>

namespace halvane {
namespace {

/// Does `call` again for a while when another program has the file open for a moment, as scanners do.
template <class Call>
bool patiently(const Call& call) {
    constexpr int tries = 50;
    constexpr std::chrono::milliseconds between(10);
    for (int i = 0; i < tries; ++i) {
        if (call())
            return true;
        const DWORD error = ::GetLastError();
        if (error != ERROR_SHARING_VIOLATION && error != ERROR_ACCESS_DENIED)
            return false;
        std::this_thread::sleep_for(between);
    }
    return false;
}

bool is_folder(const std::wstring& path) {
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

} // namespace

Descriptor make_file(const std::string& path, unsigned /*rights*/) {
    return descriptor_of(open_file(path, GENERIC_WRITE | DELETE, CREATE_NEW), true);
}

void give_rights(int /*file*/, unsigned /*rights*/) {}

bool flush_file(int file) {
    if (::FlushFileBuffers(handle_of(file)) != 0)
        return true;
    tell_last_error();
    return false;
}

bool replace_file(const std::string& path, const std::string& place) {
    const std::wstring from = wide(path);
    const std::wstring to = wide(place);
    if (is_folder(to)) {
        errno = EISDIR;
        return false;
    }
    const DWORD how = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    if (patiently([&] { return ::MoveFileExW(from.c_str(), to.c_str(), how) != 0; }))
        return true;
    tell_last_error();
    return false;
}

void flush_folder_of(const std::string& /*path*/) {} // MOVEFILE_WRITE_THROUGH has done so

void remove_file(const char* path) {
    ::DeleteFileW(wide(path).c_str());
}

bool is_own_file_unwritten_for(std::chrono::seconds time, const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA file{};
    FILETIME now{};
    ::GetSystemTimeAsFileTime(&now);
    constexpr DWORD no_regular = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
    if (::GetFileAttributesExW(wide(path).c_str(), GetFileExInfoStandard, &file) == 0 ||
        (file.dwFileAttributes & no_regular) != 0)
        return false;
    constexpr std::int64_t ticks_per_second = 10'000'000;
    const auto ticks = [](const FILETIME& t) {
        return static_cast<std::int64_t>(std::uint64_t{t.dwHighDateTime} << 32U | t.dwLowDateTime);
    };
    return (ticks(now) - ticks(file.ftLastWriteTime)) / ticks_per_second > time.count();
}

} // namespace halvane
