// SPDX-License-Identifier: MIT
#pragma once

#include "timetable/timetablecolumns.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace halvane {

/// A timetable of somebody else, as a CSV text holds it.
struct ForeignTable {
    struct Row {
        double jd = 0;                           ///< 0 h of the civil date                             [d]
        std::vector<std::optional<int>> seconds; ///< of the day, for each column; none where it is empty [s]
    };
    std::string path;                     ///< for messages
    std::vector<TimetableColumn> columns; ///< those that are known to hold times
    std::vector<Row> rows;
    /// No clock is beyond 12:59, none before 1:00 and none tells of the half of the day: 3:20 may be 15:20.
    bool twelve_hours = false;
};

/// Reads a CSV text with a head row. Its columns are known by our keys and headings, the usual English and
/// Arabic names with their spellings, and the keys of screens ("fajr_begins"); others are passed over. Dates
/// are "2026-02-18" or, where the whole text leaves no doubt, day and month in either order with the year
/// last. Clocks are "4:57", "04:57:30", "4:57 PM", "16.57", with digits of either script; an empty field or
/// dashes are no time.
/// In     text  UTF-8, with or without a byte order mark; separated by commas, semicolons or tabs
/// Error  raises RunTimeFailure (damaged file) naming `path`: no column of dates, none of times, one twice; a
///        date or a time that cannot be read, with its line; a date twice.
ForeignTable foreign_table_of_text(std::string_view text, const std::string& path);

} // namespace halvane
