// SPDX-License-Identifier: MIT
#include "system/outputplace.h"

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

namespace halvane {
namespace {

bool is_in_place_kind(mode_t mode) {
    return S_ISFIFO(mode) || S_ISSOCK(mode) || S_ISCHR(mode) || S_ISBLK(mode);
}

bool is_trusted(const struct stat& link) {
    return link.st_uid == ::geteuid() || link.st_uid == 0;
}

/// Follows the trusted links of `path` one after the other, up to what they lead to (which need not be
/// there). Empty when they do not end.
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
        path = (std::filesystem::path(path).parent_path() /
                std::string(target.data(), static_cast<std::size_t>(length)))
                   .string();
    }
    errno = ELOOP;
    return {};
}

int open_for_writing(const std::string& path) {
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

OutputPlace output_place(const std::string& path) {
    OutputPlace place;
    place.path = followed(path);
    if (place.path.empty())
        return place;
    place.kind = OutputPlace::Kind::file;
    struct stat present {};
    if (::lstat(place.path.c_str(), &present) != 0)
        return place;
    constexpr unsigned all_rights = 0777;
    if (S_ISREG(present.st_mode))
        place.rights = present.st_mode & all_rights;
    if (S_ISDIR(present.st_mode))
        place.kind = OutputPlace::Kind::folder;
    struct stat led_to {};
    const bool leads_there =
        (!S_ISLNK(present.st_mode) || is_trusted(present)) && ::stat(place.path.c_str(), &led_to) == 0;
    if (leads_there && is_in_place_kind(led_to.st_mode))
        place.kind = S_ISSOCK(led_to.st_mode) ? OutputPlace::Kind::socket : OutputPlace::Kind::in_place;
    return place;
}

Descriptor open_in_place(const OutputPlace& place) {
    return Descriptor(place.kind == OutputPlace::Kind::socket ? connect_to(place.path)
                                                              : open_for_writing(place.path));
}

Descriptor copy_of_standard_output() {
    return Descriptor(::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 0));
}

} // namespace halvane
