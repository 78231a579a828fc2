// SPDX-License-Identifier: MIT
#include "calendar/modsummer.h"

#include "calendar/civildate.h"
#include "calendar/platformdate.h"

namespace halvane {

bool in_summer_time(const Preferences& preferences, double year, double month, double day) {
    if (!has_summer_time(preferences))
        return false;
    const double start = platform_day_count(year, preferences.summer_from_month, preferences.summer_from_day);
    const double end = platform_day_count(year, preferences.summer_to_month, preferences.summer_to_day);
    const double date = platform_day_count(year, month, day);
    if (end < start)
        return date >= start || date <= end;
    return start <= date && date <= end;
}

void modsummer(double day, double month, double year, int& flag) {
    flag = in_summer_time(read_pref(), year, month, day) ? 1 : 0;
}

int summer_hours_of(const Preferences& preferences, double jd) {
    const DateNumbers date = civil_date(jd);
    return in_summer_time(preferences, date.year, date.month, date.day) ? 1 : 0;
}

} // namespace halvane
