// SPDX-License-Identifier: MIT
#include "system/unfinishedfile.h"

#include "system/filecalls.h"
#include "system/path.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <random>
#include <string_view>
#include <system_error>
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

constexpr std::size_t longest_path = 4096; // of Linux; Windows has shorter ones [bytes]

/// One path that a signal handler removes. It reads the path only while `used` is set.
struct Slot {
    std::array<char, longest_path> path{};
    std::atomic<bool> used = false;
};
static_assert(std::atomic<bool>::is_always_lock_free);

constexpr int slot_count = 16;
std::array<Slot, slot_count> slots;

/// The slot that has taken `path`; -1 when all are used or it is too long for any.
int take_slot(const std::string& path) {
    if (path.size() >= longest_path)
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

} // namespace

UnfinishedFile::UnfinishedFile(const std::string& folder, unsigned rights) {
    constexpr int tries = 100;
    std::error_code error;
    const fs::path base = fs::absolute(path_of(folder.empty() ? "." : folder), error);
    for (int i = 0; i < tries; ++i) {
        path_ = (base / new_name()).string();
        slot_ = take_slot(path_);
        file_ = make_file(path_, rights);
        if (file_.is_open())
            return;
        free_slot(std::exchange(slot_, -1));
        if (errno != EEXIST)
            return;
    }
}

UnfinishedFile::~UnfinishedFile() {
    if (!file_.is_open())
        return;
    file_.close();
    remove();
}

void UnfinishedFile::remove() {
    remove_file(path_.c_str());
    free_slot(std::exchange(slot_, -1));
}

bool UnfinishedFile::move_to(const std::string& place) {
    const bool flushed = flush_file(file_.number());
    int error = errno;
    const bool closed = file_.close();
    if (flushed && !closed)
        error = errno;
    const bool moved = flushed && closed && replace_file(path_, place);
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
            remove_file(slot.path.data());
}

void remove_old_leftovers(const std::string& folder) {
    std::error_code error;
    fs::directory_iterator entry(path_of(folder.empty() ? "." : folder), error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const std::string path = entry->path().string();
        if (is_name_of_unfinished(entry->path().filename().string()) &&
            is_own_file_unwritten_for(std::chrono::hours(24), path))
            remove_file(path.c_str());
    }
}

} // namespace halvane
