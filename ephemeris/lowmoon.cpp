// SPDX-License-Identifier: MIT
#include "ephemeris/ephemeris.h"
#include "ephemeris/moonplace.h"

namespace halvane {

MoonPlace geocentric_moon_low(Ephemeris& ephemeris, const Instant& instant) {
    const Orientation& orientation = ephemeris.orientation(instant);
    EclipticMoon moon = periodic_moon(ephemeris, orientation.dynamical_days);
    moon.longitude += orientation.nutation_longitude;
    return geocentric_moon(orientation.frame, moon);
}

MoonPlace moon_low(Ephemeris& ephemeris, const Instant& instant, const Observer& observer) {
    MoonPlace moon = geocentric_moon_low(ephemeris, instant);
    add_topocentric(observer, ephemeris.orientation(instant).frame, moon);
    return moon;
}

} // namespace halvane
