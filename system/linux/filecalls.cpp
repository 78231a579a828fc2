// SPDX-License-Identifier: MIT
#include "system/filecalls.h"

#include <cerrno>
#include <cstdio>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace halvane {

Descriptor make_file(const std::string& path, unsigned rights) {
    return Descriptor(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, rights));
}

void give_rights(int file, unsigned rights) {
    if (::fchmod(file, rights) != 0)
        errno = 0;
}

bool flush_file(int file) {
    return ::fsync(file) == 0;
}

bool replace_file(const std::string& path, const std::string& place) {
    return ::rename(path.c_str(), place.c_str()) == 0;
}

void flush_folder_of(const std::string& path) {
    const std::filesystem::path parent = std::filesystem::path(path).parent_path();
    const int folder = ::open(parent.empty() ? "." : parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return;
    ::fsync(folder);
    ::close(folder);
}

void remove_file(const char* path) {
    ::unlink(path);
}

bool is_own_file_unwritten_for(std::chrono::seconds time, const std::string& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == ::geteuid() &&
           std::time(nullptr) - status.st_mtime > time.count();
}

} // namespace halvane
