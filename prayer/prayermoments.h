// SPDX-License-Identifier: MIT
#pragma once

#include "calendar/shownclock.h"
#include "prayer/prayerday.h"
#include "stored/loc.h"
#include "stored/pref.h"

#include <vector>

namespace halvane {

/// The five prayers; Shuroq is none.
enum class Prayer { fajer, dhohur, aser, maghreb, isha };

/// A prayer's instant.
struct PrayerMoment {
    double day = 0;     ///< day count of its civil date on the location's clock
    double seconds = 0; ///< Universal Time since the platform's day 0                             [s]
    Prayer prayer = Prayer::fajer;
    ShownClock clock; ///< of the location, as it is shown
};

/// The instants of a date's prayers; a prayer without a time has none.
/// In     times  of the civil date `day`
///        day    day count
/// They are whole minutes, or seconds, as the preferences want the clocks.
std::vector<PrayerMoment> prayer_moments(const PrayerTimes& times, double day, const Preferences& preferences,
                                         const Location& location);

/// Puts moments of several dates into the order of time.
void sort_by_time(std::vector<PrayerMoment>& moments);

} // namespace halvane
