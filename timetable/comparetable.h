// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "timetable/foreigntable.h"
#include "timetable/timetable.h"

#include <optional>
#include <vector>

namespace halvane {

/// How far a column of a table is from ours: the table's clock less ours, in minutes.
struct ColumnComparison {
    TimetableColumn column{};
    int compared = 0; ///< days on which both have the time; without any the rest has no meaning
    double median = 0;
    double mean = 0;
    double least = 0;
    double greatest = 0;
    /// Half the distance of the quartiles. Source: Hyndman and Fan, "Sample Quantiles in Statistical
    /// Packages", The American Statistician 50 (1996), definition 7.
    double spread = 0;
    /// To be added to ours so that the median becomes 0: the median, in whole minutes where all differences
    /// are whole; none without days.
    std::optional<double> minutes_to_add;
    int same = 0;       ///< days that then agree within half a minute
    int within_one = 0; ///< within one minute
};

/// A table beside a timetable.
struct TableComparison {
    int days = 0;     ///< in common
    double first = 0; ///< 0 h of the first of them                                                 [d]
    double last = 0;
    bool twelve_hours = false; ///< of the table
    std::vector<ColumnComparison> columns;
};

/// Compares the times that both have. Differences are taken within half a day, those of a table of twelve
/// hours within a quarter; of Jumu'ah ours is the first.
/// Error  raises RunTimeFailure when no day is in both.
TableComparison compare_table(const ForeignTable& table, const Timetable& timetable);

/// The comparison as lines of a report.
TwinWords comparison_text(const TableComparison& comparison, PrayerNames names);

} // namespace halvane
