// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "timetable/badline.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace halvane {

/// A row of a CSV text.
struct CsvRow {
    int line = 0; ///< in which it begins, from 1
    std::vector<std::string> fields;
};

/// A CSV text with a head row.
struct CsvTable {
    CsvRow head;
    std::vector<CsvRow> rows; ///< each with as many fields as the head; empty lines are passed over

    /// The column of a heading, small and capital letters alike; nothing without it.
    std::optional<std::size_t> column(std::string_view heading) const;
};

/// Reads RFC 4180. A byte order mark is passed over; the separator is the comma, the semicolon or the tab
/// that the head row has most of.
/// Error  raises RunTimeFailure (damaged file) naming `path`, the line and what is wrong: no head, an open
///        quote mark, another number of fields than the head.
CsvTable read_csv_table(std::string_view text, const std::string& path);

/// A row of a CSV text, or a line that is none.
struct CsvLine {
    int line = 0; ///< in which it begins, from 1
    std::vector<std::string> fields;
    std::string unread; ///< the line itself where its quote marks make no fields of it; then there are none

    bool operator==(const CsvLine&) const = default;
};

/// Every row of a text, its head too, each with the fields that it has; empty lines are passed over. Each
/// line is read by itself, so that a wrong one takes no other with it: a line end within quote marks leaves
/// two lines that are none. The rest as read_csv_table.
std::vector<CsvLine> read_csv_lines(std::string_view text);

/// "wanted 4 fields, found 3"
TwinWords field_count_words(std::size_t wanted, std::size_t found);

} // namespace halvane
