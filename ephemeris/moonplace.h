#pragma once

#include "ephemeris/moon.h"
#include "ephemeris/orientation.h"

namespace halvane {

/// The steps that the routines for the Moon share.

/// Geocentric ecliptic place: deg, deg, km.
struct EclipticMoon {
    double longitude;
    double latitude;
    double distance;
};

/// The place by the periodic terms of Meeus, without nutation; `days` of dynamical time from 2000.
EclipticMoon periodic_moon(double days);

/// The geocentric members of a place from the ecliptic one, its longitude with nutation.
MoonPlace geocentric_moon(const SkyFrame& frame, const EclipticMoon& moon);

/// Fills the members that depend on the observer, and the parallax and the semidiameter.
void add_topocentric(const Observer& observer, const SkyFrame& frame, MoonPlace& moon);

/// The output arguments that the routines for the Moon share, in their order.
struct MoonOutputs {
    double &right_ascension, &declination, &topocentric_right_ascension, &topocentric_declination, &longitude,
        &latitude, &topocentric_longitude, &topocentric_latitude, &parallax, &semidiameter,
        &topocentric_semidiameter;

    void take(const MoonPlace& moon) const {
        right_ascension = moon.right_ascension;
        declination = moon.declination;
        topocentric_right_ascension = moon.topocentric_right_ascension;
        topocentric_declination = moon.topocentric_declination;
        longitude = moon.longitude;
        latitude = moon.latitude;
        topocentric_longitude = moon.topocentric_longitude;
        topocentric_latitude = moon.topocentric_latitude;
        parallax = moon.parallax;
        semidiameter = moon.semidiameter;
        topocentric_semidiameter = moon.topocentric_semidiameter;
    }
};

} // namespace halvane
