// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace halvane {

/// What tells one state of a file from another.
struct FileIdentity {
    bool exists = false;
    std::uint64_t volume = 0;
    std::uint64_t entry = 0; ///< of the volume
    std::int64_t size = 0;   ///< [bytes]
    /// Nanoseconds since 1970 January 1, 0 h UT.
    std::int64_t content_changed = 0, entry_changed = 0;

    /// The identity of `path` now; equal to no other when the file is missing.
    static FileIdentity of(const std::string& path);
    /// The same of an open file.
    static FileIdentity of(int descriptor);

    bool operator==(const FileIdentity& other) const {
        return exists && other.exists && volume == other.volume && entry == other.entry &&
               size == other.size && content_changed == other.content_changed &&
               entry_changed == other.entry_changed;
    }
    /// Whether size and time tell of no change of the content.
    bool has_content_of(const FileIdentity& other) const {
        return exists == other.exists && size == other.size && content_changed == other.content_changed;
    }
    /// Whether a further change after `moment` must show: within one tick of the file system's clock it need
    /// not.
    bool settled_at(std::chrono::system_clock::time_point moment) const;
};

/// A file that is looked at again and again. It is kept open where that makes looks cheaper: a look at the
/// open file costs no walk through the folders and shows whatever befalls the file, its removal and its
/// replacement too, since they change the time of its entry. It does not show that a folder on the way was
/// moved or replaced, nor all that a network does to a file: so the first look in each tick of the system's
/// clock (1 to 10 ms) is at the path.
class WatchedFile {
public:
    constexpr WatchedFile() = default;
    WatchedFile(const WatchedFile&) = delete;
    WatchedFile& operator=(const WatchedFile&) = delete;
    ~WatchedFile() { forget(); }

    /// Begins to watch the file that is at `path` now.
    void watch(const std::string& path);
    /// Whether `path` leads to a file of this identity, as far as the look tells.
    bool is_still(const FileIdentity& identity, const std::string& path);
    void forget();

private:
    int descriptor_ = -1;
    std::int64_t path_tick_ = 0; ///< of the last look at the path
};

} // namespace halvane
