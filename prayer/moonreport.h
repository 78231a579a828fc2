// SPDX-License-Identifier: MIT
#pragma once

#include "prayer/moonday.h"
#include "report/reportrun.h"

#include <span>

namespace halvane {

/// A row of the Moon report.
struct MoonRow {
    DateNumbers date;
    bool summer = false;
    MoonTimes times;
};

/// What its row holds.
std::span<const ColumnOf<MoonRow>> moon_columns();

/// The head of `mresults.out`.
void write_moon_head(Report& report, const Preferences& preferences, const Location& location,
                     const ReportPeriod& period);

/// One row; `number` counts the rows from 1.
void write_moon_row(Report& report, int precision, const MoonRow& row, int number);

/// The rule and the remarks after the last row.
void write_moon_closing(Report& report);

} // namespace halvane
