// SPDX-License-Identifier: MIT
#pragma once

#include "base/failure.h"
#include "base/record.h"
#include "stored/programfolder.h"
#include "stored/textfile.h"
#include "system/fileidentity.h"

#include <chrono>
#include <optional>
#include <string>
#include <utility>

namespace halvane {

/// Reads the file `name` into `record` up to its first damage: what has been read by then stands, the rest
/// stays as it was given. A missing file leaves the whole record so.
/// In     fill  reads the fields in the order of the file
template <class Record, class Fill>
Record read_while_sound(const char* name, Record record, const Fill& fill) {
    try {
        const std::string path = stored_path(name);
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
            const auto before = std::chrono::system_clock::now();
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
        save_text_file(program_path(name_), line);
        path_ = program_path(name_); // a delivered one may have stood in for it
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
        path_ = stored_path(name_);
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
