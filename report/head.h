// SPDX-License-Identifier: MIT
#pragma once

#include "report/report.h"
#include "stored/date.h"
#include "stored/loc.h"
#include "stored/pref.h"

#include <string>

namespace halvane {

/// The lines that the reports share.

/// The three centred head lines, the first of them at `column`, and an empty line.
void write_head_lines(Report& report, int column);

/// The head lines and "* Settings:-".
void write_title(Report& report, int column);

/// "dd/mm/yyyy"
std::string date_text(const DateNumbers& date);

/// The settings line of the days: `words`, then the day, or the first and the last day. `era` follows each
/// date of a period, `day_era` a single one.
void write_days(Report& report, bool one_day, const std::string& words, const DateNumbers& start,
                const DateNumbers& end, const char* day_era, const char* era);

/// Name, longitude, latitude, elevation when asked for, and zone.
void write_location(Report& report, const Location& location, bool with_elevation = true);

/// The summer time's span, or that there is none.
void write_summer_time(Report& report, const Preferences& preferences);

/// The refraction settings.
void write_refraction(Report& report, const Location& location);

/// Delta T [s] as formatted by its report.
void write_delta_t(Report& report, const std::string& seconds);

/// "* Remarks:-"
void write_remarks_title(Report& report);

/// The remarks on the form of the dates and on the mark of summer time.
void write_date_remarks(Report& report);

} // namespace halvane
