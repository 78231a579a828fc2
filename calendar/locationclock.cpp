// SPDX-License-Identifier: MIT
#include "calendar/locationclock.h"

#include "calendar/modsummer.h"
#include "calendar/platformdate.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace halvane {
namespace {

double first_day_of_chrono() {
    return platform_day_count(1970, 1, 1);
}

} // namespace

double day_count_of(const MachineTime& clock) {
    return platform_day_count(clock.year, clock.month, clock.day);
}

double seconds_of(const MachineTime& clock) {
    return day_count_of(clock) * seconds_per_day + clock.hour * seconds_per_hour + clock.minute * 60.0 +
           clock.second;
}

MachineTime clock_at(double seconds) {
    const double day = std::floor(seconds / seconds_per_day);
    constexpr double most_days = 1e7;
    const std::chrono::days since(
        static_cast<int>(std::clamp(day - first_day_of_chrono(), -most_days, most_days)));
    return shown_at(std::chrono::sys_days(since) +
                    std::chrono::seconds(static_cast<int>(std::floor(seconds - day * seconds_per_day))));
}

double hours_ahead(const Preferences& preferences, const Location& location, double day) {
    const MachineTime date = clock_at(day * seconds_per_day);
    return location.zone + (in_summer_time(preferences, date.year, date.month, date.day) ? 1 : 0);
}

LocationClock location_clock(const Preferences& preferences, const Location& location,
                             const MachineTime& universal) {
    const double instant = seconds_of(universal);
    const auto shown = [&](double hours) {
        const MachineTime time = clock_at(instant + hours * seconds_per_hour);
        return LocationClock{time, hours};
    };
    const LocationClock standard = shown(location.zone);
    const LocationClock by_its_date = shown(hours_ahead(preferences, location, day_count_of(standard.time)));
    // The last evening of summer time: its hour 24 is the hour 23 of the zone.
    const bool sound =
        hours_ahead(preferences, location, day_count_of(by_its_date.time)) == by_its_date.hours_ahead;
    return sound ? by_its_date : standard;
}

bool agree(const LocationClock& here, const MachineTime& other) {
    constexpr double one_minute = 60;
    return std::fabs(seconds_of(here.time) - seconds_of(other)) < one_minute - 1;
}

bool same_day(const MachineTime& a, const MachineTime& b) {
    return a.year == b.year && a.month == b.month && a.day == b.day;
}

} // namespace halvane
