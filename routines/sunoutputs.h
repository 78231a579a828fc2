// SPDX-License-Identifier: MIT
#pragma once

#include "ephemeris/sun.h"

namespace halvane {

/// The output arguments of the routines for the Sun, in their order.
struct SunOutputs {
    double &right_ascension, &declination, &topocentric_right_ascension, &topocentric_declination, &longitude,
        &latitude, &topocentric_longitude, &topocentric_latitude, &radius;

    void take(const SunPlace& sun) const {
        right_ascension = sun.right_ascension;
        declination = sun.declination;
        topocentric_right_ascension = sun.topocentric_right_ascension;
        topocentric_declination = sun.topocentric_declination;
        longitude = sun.longitude;
        latitude = sun.latitude;
        topocentric_longitude = sun.topocentric_longitude;
        topocentric_latitude = sun.topocentric_latitude;
        radius = sun.radius;
    }
};

} // namespace halvane
