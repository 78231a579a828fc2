// SPDX-License-Identifier: MIT
#pragma once

#include "stored/pref.h"

namespace halvane {

/// Whether a date falls into the user's summer time span.
/// In     day, month, year  civil date
/// Out    flag  1 in the span, both ends inside, else 0; a span that runs over the new year is taken as such
/// Reads `pref.vsk`. Dates are the platform's (platform_day_count).
void modsummer(double day, double month, double year, int& flag);

/// The same by preferences that are at hand.
bool in_summer_time(const Preferences& preferences, double year, double month, double day);

/// Hours by which the clock is ahead of the zone on the civil date of `jd`, its 0 h: 0 or 1
int summer_hours_of(const Preferences& preferences, double jd);

} // namespace halvane
