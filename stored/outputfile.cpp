// SPDX-License-Identifier: MIT
#include "stored/outputfile.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <climits>
#include <fcntl.h>
#include <filesystem>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace halvane {
namespace {

namespace fs = std::filesystem;

constexpr unsigned all_rights = 0777;
constexpr unsigned rights_of_new = 0666;

bool is_in_place_kind(mode_t mode) {
    return S_ISFIFO(mode) || S_ISSOCK(mode) || S_ISCHR(mode) || S_ISBLK(mode);
}

/// Another user's link could make this user's program write whatever its owner wants.
bool is_trusted(const struct stat& link) {
    return link.st_uid == ::geteuid() || link.st_uid == 0;
}

/// Follows the trusted links of `path` one after the other, up to what they lead to (which need not be
/// there). A link of the system to an open pipe or device has no name to follow: it is its own place.
std::string followed(std::string path) {
    constexpr int most_links = 40; // as the kernel's own
    for (int i = 0; i < most_links; ++i) {
        struct stat link {};
        if (::lstat(path.c_str(), &link) != 0 || !S_ISLNK(link.st_mode) || !is_trusted(link))
            return path;
        struct stat led_to {};
        if (::stat(path.c_str(), &led_to) == 0 && is_in_place_kind(led_to.st_mode))
            return path;
        std::array<char, PATH_MAX> target{};
        const ssize_t length = ::readlink(path.c_str(), target.data(), target.size());
        if (length < 0)
            return path;
        path = (fs::path(path).parent_path() / std::string(target.data(), static_cast<std::size_t>(length)))
                   .string();
    }
    errno = ELOOP;
    return {};
}

/// Opens a pipe or a device; a pipe's reader may come a little later.
int open_in_place(const std::string& path) {
    constexpr auto longest_wait = std::chrono::seconds(10);
    constexpr auto between_looks = std::chrono::milliseconds(20);
    const auto given_up = std::chrono::steady_clock::now() + longest_wait;
    for (;;) {
        const int file = ::open(path.c_str(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
        if (file >= 0) {
            ::fcntl(file, F_SETFL, 0); // writes wait
            return file;
        }
        if (errno != ENXIO || std::chrono::steady_clock::now() >= given_up)
            return -1;
        std::this_thread::sleep_for(between_looks);
    }
}

int connect_to(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) {
        errno = ENAMETOOLONG;
        return -1;
    }
    path.copy(address.sun_path, path.size());
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (socket < 0 || ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0)
        return socket;
    const int error = errno;
    ::close(socket);
    errno = error;
    return -1;
}

} // namespace

bool is_standard_output(std::string_view path) {
    constexpr std::array<std::string_view, 4> names{standard_output, "/dev/stdout", "/dev/fd/1",
                                                    "/proc/self/fd/1"};
    return std::find(names.begin(), names.end(), path) != names.end();
}

RunTimeFailure write_failure(const std::string& path) {
    return file_failure(FileAction::write, is_standard_output(path) ? "standard output" : path, errno);
}

OutputFile::OutputFile(std::string path, FileRights rights) : path_(std::move(path)) {
    if (is_standard_output(path_)) {
        in_place_ = Descriptor(::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 0));
        if (!in_place_.is_open())
            throw write_failure(path_);
        return;
    }
    place_ = followed(path_);
    if (place_.empty())
        throw write_failure(path_);
    struct stat present {};
    const bool is_there = ::lstat(place_.c_str(), &present) == 0;
    struct stat led_to {};
    const bool leads_there = is_there && (!S_ISLNK(present.st_mode) || is_trusted(present)) &&
                             ::stat(place_.c_str(), &led_to) == 0;
    if (is_there && S_ISDIR(present.st_mode)) {
        errno = EISDIR;
        throw write_failure(path_);
    }
    if (!leads_there || !is_in_place_kind(led_to.st_mode)) {
        open_beside(rights, is_there && S_ISREG(present.st_mode), present.st_mode & all_rights);
        return;
    }
    in_place_ = Descriptor(S_ISSOCK(led_to.st_mode) ? connect_to(place_) : open_in_place(place_));
    if (!in_place_.is_open())
        throw write_failure(path_);
}

void OutputFile::open_beside(FileRights rights, bool replaces, unsigned rights_before) {
    unsigned wanted = rights_of_new;
    if (replaces)
        wanted = rights == FileRights::of_umask ? rights_before & rights_of_new : rights_before;
    beside_ = std::make_unique<UnfinishedFile>(fs::path(place_).parent_path().string(), wanted);
    if (beside_->descriptor() < 0)
        throw write_failure(path_);
    // A file system without rights refuses, and keeps its own.
    if (replaces && rights == FileRights::as_before && ::fchmod(beside_->descriptor(), wanted) != 0)
        errno = 0;
}

void OutputFile::write(std::string_view bytes) {
    const int file = beside_ ? beside_->descriptor() : in_place_.number();
    if (!write_whole(file, bytes))
        throw write_failure(path_);
}

void OutputFile::commit() {
    const bool done = beside_ ? beside_->move_to(place_) : in_place_.close();
    if (!done)
        throw write_failure(path_);
}

void save_result(const std::string& path, std::string_view bytes) {
    OutputFile file(path, FileRights::of_umask);
    file.write(bytes);
    file.commit();
}

} // namespace halvane
