// SPDX-License-Identifier: MIT
#pragma once

#include "ephemeris/moon.h"

namespace halvane {

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
