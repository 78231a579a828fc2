// SPDX-License-Identifier: MIT
#include "system/fileidentity.h"

#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace halvane {
namespace {

std::int64_t nanoseconds(const timespec& time) {
    constexpr std::int64_t per_second = 1'000'000'000;
    return time.tv_sec * per_second + time.tv_nsec;
}

FileIdentity identity_of(const struct stat& status) {
    return {true,
            status.st_dev,
            status.st_ino,
            status.st_size,
            nanoseconds(status.st_mtim),
            nanoseconds(status.st_ctim)};
}

std::int64_t tick_now() {
    timespec tick{};
    ::clock_gettime(CLOCK_MONOTONIC_COARSE, &tick);
    return nanoseconds(tick);
}

} // namespace

FileIdentity FileIdentity::of(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? identity_of(status) : FileIdentity();
}

FileIdentity FileIdentity::of(int descriptor) {
    struct stat status {};
    return ::fstat(descriptor, &status) == 0 ? identity_of(status) : FileIdentity();
}

bool FileIdentity::settled_at(std::chrono::system_clock::time_point moment) const {
    constexpr std::chrono::milliseconds tick(20); // twice the slowest clock of the kernel
    const std::chrono::nanoseconds age = moment.time_since_epoch() - std::chrono::nanoseconds(entry_changed);
    return age > tick || age < -tick;
}

void WatchedFile::watch(const std::string& path) {
    forget();
    // A link is opened itself, and has another identity than its file: then every look is at the path.
    descriptor_ = ::open(path.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC);
    path_tick_ = 0;
}

bool WatchedFile::is_still(const FileIdentity& identity, const std::string& path) {
    const std::int64_t tick = tick_now();
    const bool path_was_seen = tick == path_tick_;
    if (path_was_seen && FileIdentity::of(descriptor_) == identity)
        return true;
    path_tick_ = tick;
    return FileIdentity::of(path) == identity;
}

void WatchedFile::forget() {
    if (descriptor_ >= 0)
        ::close(descriptor_);
    descriptor_ = -1;
}

} // namespace halvane
