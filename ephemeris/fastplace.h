#pragma once

#include "ephemeris/observer.h"

namespace halvane {

/// Parts of modcorsvl and modcormvl for searches that need no more.

/// Geocentric place.
struct FastPlace {
    double right_ascension = 0; ///< 0 to 360                                                  [deg]
    double declination = 0;     ///<                                                           [deg]
    double distance = 0;        ///< Sun [AU], Moon [km]
};

FastPlace sun_fast_place(double jd);
FastPlace moon_fast_place(double jd);

/// Topocentric ecliptic longitude, 0 to 360                                                   [deg]
double sun_fast_longitude(const Observer& observer, double jd);
double moon_fast_longitude(const Observer& observer, double jd);

} // namespace halvane
