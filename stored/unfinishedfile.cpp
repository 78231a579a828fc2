// SPDX-License-Identifier: MIT
#include "stored/unfinishedfile.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <initializer_list>
#include <random>
#include <string_view>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace halvane {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view name_start = ".halvane-save-";
constexpr std::string_view name_characters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
constexpr std::size_t random_characters = 6;

bool is_name_of_unfinished(std::string_view name) {
    return name.size() == name_start.size() + random_characters && name.starts_with(name_start) &&
           name.find_first_not_of(name_characters, name_start.size()) == std::string_view::npos;
}

std::string new_name() {
    static std::random_device random;
    std::uniform_int_distribution<std::size_t> any(0, name_characters.size() - 1);
    std::string name(name_start);
    for (std::size_t i = 0; i < random_characters; ++i)
        name += name_characters[any(random)];
    return name;
}

/// One path that a signal handler removes. It reads the path only while `used` is set.
struct Slot {
    std::array<char, PATH_MAX> path{};
    std::atomic<bool> used = false;
};
static_assert(std::atomic<bool>::is_always_lock_free);

constexpr int slot_count = 16;
std::array<Slot, slot_count> slots;

/// The slot that has taken `path`; -1 when all are used or it is too long for any.
int take_slot(const std::string& path) {
    if (path.size() >= PATH_MAX)
        return -1;
    for (int i = 0; i < slot_count; ++i) {
        Slot& slot = slots[static_cast<std::size_t>(i)];
        if (slot.used)
            continue;
        path.copy(slot.path.data(), path.size());
        slot.path[path.size()] = '\0';
        slot.used = true;
        return i;
    }
    return -1;
}

void free_slot(int slot) {
    if (slot >= 0)
        slots[static_cast<std::size_t>(slot)].used = false;
}

void flush_folder_of(const std::string& path) {
    const fs::path parent = fs::path(path).parent_path();
    const int folder = ::open(parent.empty() ? "." : parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return;
    ::fsync(folder);
    ::close(folder);
}

void handle(int number, void (*handler)(int)) {
    struct sigaction present {};
    if (::sigaction(number, nullptr, &present) != 0 || present.sa_handler == SIG_IGN)
        return; // as nohup and a shell's background jobs ask for
    struct sigaction action {};
    action.sa_handler = handler;
    ::sigaction(number, &action, nullptr);
}

} // namespace

UnfinishedFile::UnfinishedFile(const std::string& folder, unsigned rights) {
    constexpr int tries = 100;
    std::error_code error;
    const fs::path base = fs::absolute(folder.empty() ? fs::path(".") : fs::path(folder), error);
    for (int i = 0; i < tries; ++i) {
        path_ = (base / new_name()).string();
        slot_ = take_slot(path_);
        descriptor_ = ::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, rights);
        if (descriptor_ >= 0)
            return;
        free_slot(std::exchange(slot_, -1));
        if (errno != EEXIST)
            return;
    }
}

UnfinishedFile::~UnfinishedFile() {
    if (descriptor_ < 0)
        return;
    close();
    remove();
}

bool UnfinishedFile::close() {
    return ::close(std::exchange(descriptor_, -1)) == 0;
}

void UnfinishedFile::remove() {
    ::unlink(path_.c_str());
    free_slot(std::exchange(slot_, -1));
}

bool UnfinishedFile::move_to(const std::string& place) {
    const bool flushed = ::fsync(descriptor_) == 0;
    int error = errno;
    const bool closed = close();
    if (flushed && !closed)
        error = errno;
    const bool moved = flushed && closed && ::rename(path_.c_str(), place.c_str()) == 0;
    if (flushed && closed && !moved)
        error = errno;
    if (moved) {
        free_slot(std::exchange(slot_, -1));
        flush_folder_of(place);
        return true;
    }
    remove();
    errno = error;
    return false;
}

void remove_unfinished_files() {
    for (const Slot& slot : slots)
        if (slot.used)
            ::unlink(slot.path.data());
}

void end_by_signal(int number) {
    remove_unfinished_files();
    ::signal(number, SIG_DFL);
    ::raise(number);
}

void begin_program() {
    // In the other direction than the stream's: its use stays the error that it is when closed.
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (::fcntl(stream, F_GETFD) < 0 && errno == EBADF) [[maybe_unused]]
            const int placeholder = ::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    ::signal(SIGPIPE, SIG_IGN);
    ::signal(SIGXFSZ, SIG_IGN);
    for (const int number : {SIGTERM, SIGHUP, SIGINT})
        handle(number, end_by_signal);
}

void remove_old_leftovers(const std::string& folder) {
    constexpr std::time_t day = 86400;
    const std::time_t now = std::time(nullptr);
    std::error_code error;
    fs::directory_iterator entry(folder.empty() ? "." : folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        struct stat status {};
        if (is_name_of_unfinished(entry->path().filename().string()) &&
            ::lstat(entry->path().c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
            status.st_uid == ::geteuid() && now - status.st_mtime > day)
            ::unlink(entry->path().c_str());
    }
}

} // namespace halvane
