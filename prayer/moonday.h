// SPDX-License-Identifier: MIT
#pragma once

#include "events/riseset.h"
#include "stored/loc.h"
#include "stored/pref.h"

namespace halvane {

/// The Moon's rise and set of a local day.
/// In     jd           0 h of the civil date                                                    [d]
///        clock_ahead  zone and summer hours                                                    [h]
RiseSet moon_rise_set(Ephemeris& ephemeris, const Preferences& preferences, const Location& location,
                      double jd, double clock_ahead);

/// The Moon's day on its own clock, 0 to below 24 [h], or why there is none.
struct MoonTimes {
    TaggedTime rise = NoEvent::none;
    TaggedTime transit = NoEvent::none;
    TaggedTime set = NoEvent::none;
};

/// The Moon's rise, transit and set of one civil day.
/// In     jd            0 h of the civil date                                                   [d]
///        summer_hours  0 or 1
/// A transit is the passage found from the day's start, folded into the day; below the horizon, or further
/// than 7 deg from the meridian at the folded moment, it is "----".
MoonTimes moon_day(Ephemeris& ephemeris, const Preferences& preferences, const Location& location, double jd,
                   int summer_hours);

} // namespace halvane
