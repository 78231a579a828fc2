// SPDX-License-Identifier: MIT
#pragma once

#include "base/failure.h"
#include "base/record.h"
#include "stored/programfolder.h"
#include "stored/textfile.h"

#include <ctime>
#include <fcntl.h>
#include <optional>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace halvane {

/// What tells one state of a file from another: device, inode, size, time of change of content and of entry.
class FileIdentity {
public:
    /// The identity of `path` now; equal to no other when the file is missing.
    static FileIdentity of(const std::string& path) {
        FileIdentity identity;
        identity.exists_ = ::stat(path.c_str(), &identity.status_) == 0;
        return identity;
    }
    /// The same of an open file.
    static FileIdentity of(int descriptor) {
        FileIdentity identity;
        identity.exists_ = ::fstat(descriptor, &identity.status_) == 0;
        return identity;
    }
    bool operator==(const FileIdentity& other) const {
        return exists_ && other.exists_ && status_.st_dev == other.status_.st_dev &&
               status_.st_ino == other.status_.st_ino && status_.st_size == other.status_.st_size &&
               same(status_.st_mtim, other.status_.st_mtim) && same(status_.st_ctim, other.status_.st_ctim);
    }

    /// Whether a further change after `moment` must show: within one tick of the file system's clock it need
    /// not.
    bool settled_at(const timespec& moment) const {
        constexpr double tick = 0.02; // twice the slowest clock of the kernel [s]
        const double age = static_cast<double>(moment.tv_sec - status_.st_ctim.tv_sec) +
                           static_cast<double>(moment.tv_nsec - status_.st_ctim.tv_nsec) * 1e-9;
        return age > tick || age < -tick;
    }

private:
    static bool same(const timespec& a, const timespec& b) {
        return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
    }
    bool exists_ = false;
    struct stat status_ {};
};

/// A file that is looked at again and again. It is kept open, without access to its content: a look at the
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
    void watch(const std::string& path) {
        forget();
        // A link is opened itself, and has another identity than its file: then every look is at the path.
        descriptor_ = ::open(path.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC);
        path_tick_ = {};
    }
    /// Whether `path` leads to a file of this identity, as far as the look tells.
    bool is_still(const FileIdentity& identity, const std::string& path) {
        timespec tick{};
        ::clock_gettime(CLOCK_MONOTONIC_COARSE, &tick);
        const bool path_was_seen = tick.tv_sec == path_tick_.tv_sec && tick.tv_nsec == path_tick_.tv_nsec;
        if (path_was_seen && FileIdentity::of(descriptor_) == identity)
            return true;
        path_tick_ = tick;
        return FileIdentity::of(path) == identity;
    }
    void forget() {
        if (descriptor_ >= 0)
            ::close(descriptor_);
        descriptor_ = -1;
    }

private:
    int descriptor_ = -1;
    timespec path_tick_{}; ///< of the last look at the path
};

/// Reads the file `name` into `record` up to its first damage: what has been read by then stands, the rest
/// stays as it was given. A missing file leaves the whole record so.
/// In     fill  reads the fields in the order of the file
template <class Record, class Fill>
Record read_while_sound(const char* name, Record record, const Fill& fill) {
    try {
        const std::string path = program_path(name);
        const std::string text = read_text_file(path);
        RecordReader reader(text, path);
        fill(reader, record);
    } catch (const RunTimeFailure&) {
        return record;
    }
    return record;
}

/// A stored file of one record. `read` gives the results of reading the file at every call at the price of
/// one look at the file's identity; the record is parsed again only when that has changed.
template <class Fields>
class StoredFile {
public:
    using Record = typename Fields::Record;

    constexpr StoredFile(const char* name, const Fields& fields) : name_(name), fields_(fields) {}

    /// The stored record; the reference holds until the next call of `read` or `write`.
    const Record& read() {
        if (supposed_)
            return *supposed_;
        refresh_path();
        if (!record_ || !settled_ || !file_.is_still(identity_, path_)) {
            record_.reset();
            timespec before{};
            ::clock_gettime(CLOCK_REALTIME, &before);
            file_.watch(path_);
            const FileIdentity now = FileIdentity::of(path_);
            const std::string text = read_text_file(path_);
            RecordReader reader(text, path_);
            record_ = parse(reader);
            identity_ = now;
            settled_ = now.settled_at(before);
            ++version_;
        }
        return *record_;
    }

    /// Rewrites the file whole, in one step.
    void write(const Record& record) {
        refresh_path();
        const std::string line = fields_.line(record);
        record_.reset();
        save_text_file(path_, line);
    }

    /// `record` as `read` would give it after it had been written.
    Record reread(const Record& record) const {
        const std::string line = fields_.line(record);
        RecordReader reader(line, path_);
        return parse(reader);
    }

    /// From now on `read` answers as if `record` had been written; the file is neither looked at nor touched.
    void suppose(const Record& record) {
        supposed_ = reread(record);
        ++version_;
    }
    void stop_supposing() {
        supposed_.reset();
        record_.reset();
    }

    /// The record as far as the file is sound: the fields from its first damage on, or without the file all,
    /// are those of `record`. Raises nothing.
    Record readable(Record record) const {
        return read_while_sound(name_, std::move(record),
                                [this](RecordReader& reader, Record& found) { fields_.read(reader, found); });
    }

    /// Changes whenever `read` answers from another record than before.
    unsigned version() const { return version_; }

private:
    void refresh_path() {
        if (!path_.empty() && generation_ == program_folder_generation())
            return;
        generation_ = program_folder_generation();
        path_ = program_path(name_);
        file_.forget();
        record_.reset();
    }

    Record parse(RecordReader& reader) const {
        Record record;
        fields_.read(reader, record);
        return record;
    }

    const char* name_;
    const Fields& fields_;
    std::string path_;
    unsigned generation_ = 0;
    unsigned version_ = 0;
    std::optional<Record> record_;
    std::optional<Record> supposed_;
    WatchedFile file_;
    FileIdentity identity_;
    bool settled_ = false;
};

} // namespace halvane
