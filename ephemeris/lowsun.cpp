// SPDX-License-Identifier: MIT
#include "ephemeris/sun.h"

#include "ephemeris/coordinates.h"
#include "ephemeris/ephemeris.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/sunplace.h"

namespace halvane {

SunPlace geocentric_sun_low(Ephemeris& ephemeris, const Instant& instant) {
    const Orientation& orientation = ephemeris.orientation(instant);
    const double t = orientation.dynamical_days / 36525;
    const LowSun low = low_sun(t);
    SunPlace sun;
    sun.longitude = low_apparent_longitude(low.true_longitude, rev360(125.04 - 1934.136 * t));
    sun.radius = low.radius;
    equatorial_of(orientation.frame, sun.longitude, sun.latitude, sun.right_ascension, sun.declination);
    sun.equation_of_time =
        equation_of_time(low.mean_longitude - 0.0057183 - sun.right_ascension +
                         orientation.nutation_longitude * orientation.frame.cosine_obliquity);
    return sun;
}

SunPlace sun_low(Ephemeris& ephemeris, const Instant& instant, const Observer& observer) {
    SunPlace sun = geocentric_sun_low(ephemeris, instant);
    add_topocentric(observer, ephemeris.orientation(instant).frame, sun);
    return sun;
}

} // namespace halvane
