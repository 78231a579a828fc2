// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace halvane {

/// Reads the fields of a stored file one after the other, as a list input does: fields end at a comma or at a
/// line end (CR LF, LF or CR), strings stand in double quotes and may hold commas, numbers are decimal with a
/// point (an exponent is taken), Booleans are #TRUE# and #FALSE#. Blanks around a field do not count.
/// Error  every reader raises RunTimeFailure naming the file, the record, the field and what was found.
class RecordReader {
public:
    /// `text` must outlive the reader. `path` is for messages only.
    RecordReader(std::string_view text, std::string path);

    /// Skips empty lines; true when nothing is left.
    bool at_end();
    /// Counts a new record for the messages; fields count from 1 again.
    void start_record();

    std::string text();
    double number();
    /// A number whose magnitude is at most `limit`.
    double number_within(double limit);
    bool boolean();
    /// A whole number of 16 bits.
    int integer();

private:
    struct Field {
        std::string_view text;
        bool quoted = false;
        bool present = false;
    };
    Field next_field();
    [[noreturn]] void raise(const Field& field, const TwinWords& wanted) const;

    std::string_view text_;
    std::string path_;
    std::size_t position_ = 0;
    int record_ = 1;
    int field_ = 0;
};

/// Builds one record in the form that RecordReader reads.
class RecordWriter {
public:
    /// A double quote mark and a line end would break the record: they are stored as an apostrophe and a
    /// blank.
    RecordWriter& text(std::string_view value);
    /// The shortest decimal text that reads back as the same number, never with an exponent.
    RecordWriter& number(double value);
    /// A number that RecordReader::number_within shall read again: one beyond `limit` is written as the
    /// limit.
    RecordWriter& number_within(double value, double limit);
    RecordWriter& boolean(bool value);

    /// The fields so far, without a line end.
    const std::string& fields() const { return line_; }
    /// The record with its CR LF.
    std::string line() const { return line_ + "\r\n"; }

private:
    void separate();
    std::string line_;
};

} // namespace halvane
