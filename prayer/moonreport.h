// SPDX-License-Identifier: MIT
#pragma once

#include "prayer/moonday.h"
#include "prayer/prayerreport.h"
#include "report/report.h"

namespace halvane {

/// The head of `mresults.out`.
void write_moon_head(Report& report, const Preferences& preferences, const Location& location,
                     const ReportPeriod& period);

/// One row; `number` counts the rows from 1.
void write_moon_row(Report& report, int precision, bool summer, const std::string& date,
                    const MoonTimes& times, int number);

/// The rule and the remarks after the last row.
void write_moon_closing(Report& report);

} // namespace halvane
