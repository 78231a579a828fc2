#pragma once

#include "app/stored/failure.h"
#include "app/stored/programfolder.h"
#include "app/stored/record.h"
#include "app/stored/textfile.h"

#include <ctime>
#include <optional>
#include <string>
#include <sys/stat.h>

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

/// A stored file of one record. `read` gives the results of reading the file at every call at the price of
/// one look at the file's identity; the record is parsed again only when that has changed.
template <class Record>
class StoredFile {
public:
    using Parse = Record (*)(RecordReader&);
    using Format = std::string (*)(const Record&);

    constexpr StoredFile(const char* name, Parse parse, Format format)
        : name_(name), parse_(parse), format_(format) {}

    /// The stored record; the reference holds until the next call of `read` or `write`.
    const Record& read() {
        refresh_path();
        if (!record_ || !settled_ || !(FileIdentity::of(path_) == identity_)) {
            record_.reset();
            timespec before{};
            ::clock_gettime(CLOCK_REALTIME, &before);
            const FileIdentity now = FileIdentity::of(path_);
            const std::string text = read_text_file(path_);
            RecordReader reader(text, path_);
            record_ = parse_(reader);
            identity_ = now;
            settled_ = now.settled_at(before);
            ++version_;
        }
        return *record_;
    }

    /// Rewrites the file whole, in one step.
    void write(const Record& record) {
        refresh_path();
        const std::string line = format_(record);
        record_.reset();
        save_text_file(path_, line);
    }

    /// Changes whenever `read` has parsed the file anew.
    unsigned version() const { return version_; }

private:
    void refresh_path() {
        if (!path_.empty() && generation_ == program_folder_generation())
            return;
        generation_ = program_folder_generation();
        path_ = program_path(name_);
        record_.reset();
    }

    const char* name_;
    Parse parse_;
    Format format_;
    std::string path_;
    unsigned generation_ = 0;
    unsigned version_ = 0;
    std::optional<Record> record_;
    FileIdentity identity_;
    bool settled_ = false;
};

/// Reads the file `name` into `record` up to its first damage: what has been read by then stands, the rest
/// stays as it was given. A missing file leaves the whole record so.
/// In     fill  reads the fields in the order of the file
template <class Record>
Record read_while_sound(const char* name, Record record, void (*fill)(RecordReader&, Record&)) {
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

} // namespace halvane
