// SPDX-License-Identifier: MIT
#pragma once

#include "base/progress.h"
#include "base/twintext.h"
#include "ephemeris/ephemeris.h"
#include "stored/coor.h"

#include <optional>

namespace halvane {

/// What a table covers.
struct TableSpan {
    double start = 0; ///< Julian day of the first row, UT1 or TDT as the settings say        [d]
    double end = 0;   ///< the last row stands here or before, in the same time               [d]
    double step = 1;  ///< above 0                                                            [d]
};

/// The span of the settings for a zone [h, east positive]. Only the whole part of the interval counts,
/// without its sign; an interval of 0 is one day whatever the unit.
TableSpan table_span(const EphemerisSettings& settings, double zone);

/// Rows are counted before a table starts.
inline constexpr double most_table_rows = 1e7;

/// How many rows a table has; below 1 when its end comes before its start.
double table_rows(const TableSpan& span);

/// The input that keeps a table from being written.
enum class TableInput { start_year, end_year, interval };

struct TableRefusal {
    TableInput input;
    Refusal told;
};

/// Why there is no table of these choices: a year beyond the theories, or too many rows. Nothing for one that
/// can be written. Reads `loc.vsk`.
std::optional<TableRefusal> refused_table(const EphemerisSettings& settings);

/// Writes `ephemeris.out`: a row at start + n step for every n until the end (and 1e-8 d beyond, so that an
/// interval that divides the span keeps its last row).
/// Reads `loc.vsk`; needs the arrays of `mterm.vsk` and of `termfull.vsk` (Sun) or `elp.vsk` (Moon).
/// Returns refused when the end comes before the start (see end_before_start), and for a table of
///         refused_table: nothing is written then;
///         cancelled with the rows so far and the remarks in the file.
/// Error   raises RunTimeFailure; an earlier `ephemeris.out` then stands.
RunOutcome write_ephemeris_report(const TheoryPointer& theory, const EphemerisSettings& settings,
                                  Progress& progress);

/// What the user is told when the table is refused.
extern const TwinMessage end_before_start;

} // namespace halvane
