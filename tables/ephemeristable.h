// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "ephemeris/ephemeris.h"
#include "report/run.h"
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

/// The table, `ephemeris.out`: a row at start + n step for every n until the end (and 1e-8 d beyond, so that
/// an interval that divides the span keeps its last row). Nothing for a table of refused_table, nor when the
/// end comes before the start (see end_before_start). In     theory  with `mterm.vsk` and `termfull.vsk`
/// (Sun) or `elp.vsk` (Moon) Reads `loc.vsk`.
RunPointer ephemeris_run(const TheoryPointer& theory, const EphemerisSettings& settings);

/// What the user is told of an end before the start.
extern const TwinMessage end_before_start;

} // namespace halvane
