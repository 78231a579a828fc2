// SPDX-License-Identifier: MIT
#pragma once

#include "ephemeris/ephemeris.h"

namespace halvane {

/// Time by which an event's estimate is off: how long the body takes from its altitude to `h0`          [h]
/// In     altitude, h0, declination, hour_angle [deg]; cosine_latitude
/// Source Meeus, Astronomical Algorithms, chapter "Rising, Transit, and Setting".
double hours_to_altitude(double altitude, double h0, double cosine_latitude, double declination,
                         double hour_angle);

/// One correction of an event's time towards the altitude `h0` by the medium series.
/// In     start  what the hours count from; h0 [deg]
/// Returns hours from `start`
double corrected_hours(Ephemeris& ephemeris, Body body, const Instant& start, const Observer& observer,
                       double hours, double h0);

/// The same with the hour angle and the speed of another place than the observer's.
struct HourAnglePlace {
    double longitude = 0; ///< east positive                                                    [deg]
    double cosine_latitude = 1;
};
double corrected_hours(Ephemeris& ephemeris, Body body, const Instant& start, const Observer& observer,
                       double hours, double h0, const HourAnglePlace& place);

/// Whether a correction has thrown an estimate [h] out of every century: near a pole the body does not come
/// to the altitude, and the search is over. The theories have no meaning there.
bool has_left_the_theories(double hours);

} // namespace halvane
