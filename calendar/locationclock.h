// SPDX-License-Identifier: MIT
#pragma once

#include "base/machinetime.h"
#include "stored/loc.h"
#include "stored/pref.h"

namespace halvane {

inline constexpr double seconds_per_hour = 3600;
inline constexpr double seconds_per_day = 86400;

/// Day count of a clock's date, as platform_day_count gives it.
double day_count_of(const MachineTime& clock);

/// Seconds from 0 h of the platform's day 0 to what a clock shows.
double seconds_of(const MachineTime& clock);

/// The date and clock at so many seconds, the inverse of seconds_of; parts of a second are dropped.
MachineTime clock_at(double seconds);

/// How far a location's clock is ahead of Universal Time on the civil date `day`, by its zone and the stored
/// summer time.
/// In     day  day count
/// Returns hours, east positive
double hours_ahead(const Preferences& preferences, const Location& location, double day);

/// What a location's clock shows at an instant.
struct LocationClock {
    MachineTime time;
    double hours_ahead = 0; ///< of Universal Time; of the clock's own date                       [h]
};
LocationClock location_clock(const Preferences& preferences, const Location& location,
                             const MachineTime& universal);

/// Whether a location's clock and another one show the same date and time: less than a minute apart, and a
/// second less than that, since they are read one after the other.
bool agree(const LocationClock& here, const MachineTime& other);

/// Whether two clocks show the same date.
bool same_day(const MachineTime& a, const MachineTime& b);

} // namespace halvane
