// SPDX-License-Identifier: MIT
#pragma once

#include "events/riseset.h"
#include "timetable/profile.h"
#include "timetable/skytime.h"

namespace halvane {

/// From a transit of the Sun to the next: hours of Universal Time from 0 h of the date whose evening it
/// begins with.
struct Night {
    double transit = 0; ///<                                                                        [h]
    SkyTime sunset;
    SkyTime maghreb; ///< sunset, or the profile's depression after it
    SkyTime isha;
    SkyTime fajer; ///< of the next date, as the two below
    SkyTime sunrise;
};

/// An observer's sky with the angles of a profile.
struct NightSky {
    Observer observer;
    double longitude = 0; ///< east positive                                                        [deg]
    Horizon horizon;
    double maghreb_angle = 0; ///< 0: sunset                                                        [deg]
};

/// Transit of a date's Sun nearest to the noon of a clock, from 0 h of the date                      [h, UT]
/// In     jd     0 h of the civil date                                                             [d]
///        ahead  of the clock from Universal Time                                                  [h]
double transit_of_date(Ephemeris& ephemeris, double longitude, double jd, double ahead);

/// The events of the night that follows a transit. Each is searched from the transit on, so that neither
/// midnight nor a change of the clock cuts the search.
/// In     jd       0 h of the civil date [d]; transit  of it [h, UT]
/// Accuracy  as find_rise_set.
Night night_after(Ephemeris& ephemeris, const NightSky& sky, double jd, double transit);

/// The afternoon's moment at which a shadow has grown, from 0 h of the date; not before the transit   [h, UT]
SkyTime aser_before(Ephemeris& ephemeris, const NightSky& sky, double jd, const Night& night,
                    int shadow_lengths);

} // namespace halvane
