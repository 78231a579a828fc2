// SPDX-License-Identifier: MIT
#pragma once

#include "stored/outputfile.h"

#include <optional>
#include <string>
#include <string_view>

namespace halvane {

/// The print cursor of every report: texts, blanks and moves to a column, line after line. Columns count
/// characters from 1; lines end with CR LF; the text is UTF-8.
class Report {
public:
    /// A report that stays in memory.
    Report() = default;
    /// A report for `path`: a result that takes its place on commit, as OutputFile tells. Until then, and
    /// when the report is given up, an earlier file of that name stands untouched. Error  raises
    /// RunTimeFailure when the folder cannot be written; so do the writers.
    explicit Report(std::string path);
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;

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
    void commit();
    /// What has been written and not yet passed on to a file.
    const std::string& content() const { return buffer_; }

private:
    void flush();
    std::optional<OutputFile> file_;
    std::string buffer_;
    int column_ = 1;
};

} // namespace halvane
