// SPDX-License-Identifier: MIT
#include "routines/modmoon.h"

#include "routines/moonoutputs.h"
#include "routines/namedengine.h"

namespace halvane {

void modcormm(double /*pi_value*/, double jd, double& right_ascension, double& declination,
              double& topocentric_right_ascension, double& topocentric_declination, double& longitude,
              double& latitude, double& topocentric_longitude, double& topocentric_latitude, double& parallax,
              double& semidiameter, double& topocentric_semidiameter, double& distance) {
    const MoonPlace moon = moon_medium(named_ephemeris(), named_instant(jd), stored_observer());
    MoonOutputs{right_ascension, declination,  topocentric_right_ascension, topocentric_declination,
                longitude,       latitude,     topocentric_longitude,       topocentric_latitude,
                parallax,        semidiameter, topocentric_semidiameter}
        .take(moon);
    distance = moon.distance;
}

void modcorml(double /*pi_value*/, double jd, double& right_ascension, double& declination,
              double& topocentric_right_ascension, double& topocentric_declination, double& longitude,
              double& latitude, double& topocentric_longitude, double& topocentric_latitude, double& parallax,
              double& semidiameter, double& topocentric_semidiameter) {
    const MoonPlace moon = moon_low(named_ephemeris(), named_instant(jd), stored_observer());
    MoonOutputs{right_ascension, declination,  topocentric_right_ascension, topocentric_declination,
                longitude,       latitude,     topocentric_longitude,       topocentric_latitude,
                parallax,        semidiameter, topocentric_semidiameter}
        .take(moon);
}

void modcormvl(double observer_longitude, double observer_latitude, double jd, double& right_ascension,
               double& declination, double& topocentric_right_ascension, double& topocentric_declination,
               double& longitude, double& latitude, double& topocentric_longitude,
               double& topocentric_latitude, double& parallax, double& semidiameter,
               double& topocentric_semidiameter, double& distance) {
    const Observer observer = observer_at(observer_longitude, observer_latitude, 0);
    const MoonPlace moon = moon_fast(named_ephemeris(), named_instant(jd), observer);
    MoonOutputs{right_ascension, declination,  topocentric_right_ascension, topocentric_declination,
                longitude,       latitude,     topocentric_longitude,       topocentric_latitude,
                parallax,        semidiameter, topocentric_semidiameter}
        .take(moon);
    distance = moon.distance;
}

} // namespace halvane
