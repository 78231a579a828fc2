// SPDX-License-Identifier: MIT
#pragma once

#ifdef HALVANE_SWISS_EPHEMERIS
#include "tools/measuring/swissephemeris.h"
#endif

#include <cmath>
#include <stdexcept>

namespace halvane {

/// Where the Sun stands, airless                                                                [deg]
struct Horizontal {
    double altitude = 0;
    double azimuth = 0; ///< from north through east, 0 to 360
};

/// The Sun by an ephemeris that shares nothing with the engine's.
/// In     jd  UT1 [d]; longitude, latitude [deg]
#ifdef HALVANE_SWISS_EPHEMERIS
inline constexpr bool has_independent_sun = true;

inline Horizontal independent_sun(double jd, double longitude, double latitude) {
    const swiss::Place sun = swiss::geocentric(swiss::Body::sun, swiss::dynamical_time(jd));
    const swiss::Horizontal place = swiss::horizontal(sun, jd, longitude, latitude);
    return {place.altitude, place.azimuth};
}
#else
inline constexpr bool has_independent_sun = false;

inline Horizontal independent_sun(double, double, double) {
    throw std::logic_error("built without the Swiss Ephemeris library");
}
#endif

/// Difference of two azimuths, -180 to 180                                                      [deg]
inline double azimuth_difference(double a, double b) {
    return std::remainder(a - b, 360);
}

} // namespace halvane
