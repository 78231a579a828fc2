// SPDX-License-Identifier: MIT
#include "routines/modsun.h"

#include "ephemeris/sun.h"
#include "routines/namedengine.h"
#include "routines/sunoutputs.h"

namespace halvane {

void modcorsh(double /*pi_value*/, double jd, double& right_ascension, double& declination,
              double& topocentric_right_ascension, double& topocentric_declination, double& longitude,
              double& latitude, double& topocentric_longitude, double& topocentric_latitude, double& radius,
              double& equation_of_time) {
    const SunPlace sun = sun_high(named_ephemeris(), named_instant(jd), stored_observer());
    SunOutputs{right_ascension, declination, topocentric_right_ascension, topocentric_declination,
               longitude,       latitude,    topocentric_longitude,       topocentric_latitude,
               radius}
        .take(sun);
    equation_of_time = sun.equation_of_time;
}

void modcorsm(double /*pi_value*/, double jd, double& right_ascension, double& declination,
              double& topocentric_right_ascension, double& topocentric_declination, double& longitude,
              double& latitude, double& topocentric_longitude, double& topocentric_latitude, double& radius,
              double& equation_of_time) {
    const SunPlace sun = sun_medium(named_ephemeris(), named_instant(jd), stored_observer());
    SunOutputs{right_ascension, declination, topocentric_right_ascension, topocentric_declination,
               longitude,       latitude,    topocentric_longitude,       topocentric_latitude,
               radius}
        .take(sun);
    equation_of_time = sun.equation_of_time;
}

void modcorsl(double /*pi_value*/, double jd, double& right_ascension, double& declination,
              double& topocentric_right_ascension, double& topocentric_declination, double& longitude,
              double& latitude, double& topocentric_longitude, double& topocentric_latitude, double& radius,
              double& equation_of_time) {
    const SunPlace sun = sun_low(named_ephemeris(), named_instant(jd), stored_observer());
    SunOutputs{right_ascension, declination, topocentric_right_ascension, topocentric_declination,
               longitude,       latitude,    topocentric_longitude,       topocentric_latitude,
               radius}
        .take(sun);
    equation_of_time = sun.equation_of_time;
}

void modcorsvl(double observer_longitude, double observer_latitude, double jd, double& right_ascension,
               double& declination, double& topocentric_right_ascension, double& topocentric_declination,
               double& longitude, double& latitude, double& topocentric_longitude,
               double& topocentric_latitude, double& radius) {
    const Observer observer = observer_at(observer_longitude, observer_latitude, 0);
    SunOutputs{right_ascension, declination, topocentric_right_ascension, topocentric_declination,
               longitude,       latitude,    topocentric_longitude,       topocentric_latitude,
               radius}
        .take(sun_fast(named_ephemeris(), named_instant(jd), observer));
}

} // namespace halvane
