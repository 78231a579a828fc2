// SPDX-License-Identifier: MIT
#pragma once

#include "report/textresult.h"

#include <string>
#include <string_view>
#include <utility>

namespace halvane {

/// The print cursor of every report: texts, blanks and moves to a column, line after line. Columns count
/// characters from 1; lines end with CR LF unless told; the text is UTF-8.
class Report {
public:
    /// A report that stays in memory.
    Report() = default;
    /// A report for `path`, as TextResult tells.
    /// Error  raises RunTimeFailure when the folder cannot be written; so do the writers.
    explicit Report(std::string path, const char* line_end = "\r\n")
        : result_(std::move(path)), line_end_(line_end) {}

    Report& text(std::string_view value);
    /// So many blanks.
    Report& spc(int count);
    /// Moves to a column, in the next line when the cursor is already past it; its blanks are written at
    /// once.
    Report& tab(int column);
    /// A number as an item of its own: a blank in place of a plus sign, and one trailing blank.
    Report& item(double value);
    Report& item(float value);
    Report& end_line();
    /// A whole line of text.
    Report& line(std::string_view value) { return text(value).end_line(); }
    /// A line of so many equals signs.
    Report& rule(int count);

    /// Puts the report in its place.
    void commit() { result_.commit(); }
    /// What has been written and not yet passed on to a file.
    const std::string& content() const { return result_.text(); }

private:
    TextResult result_;
    const char* line_end_ = "\r\n";
    int column_ = 1;
};

} // namespace halvane
