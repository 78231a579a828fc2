#include "ephemeris/sun.h"

#include "ephemeris/earthorientation.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/sunplace.h"
#include "ephemeris/sunroutine.h"

#include <cmath>

namespace halvane {

SunPlace sun_low(const Observer& observer, double jd) {
    const double t = (jd + days_to_dynamical_time(jd) - epoch_j2000) / 36525;
    const LowSun low = low_sun(t);
    double nutation = 0;
    double nutation_obliquity = 0;
    double obliquity = 0;
    modobliquity(jd, nutation, nutation_obliquity, obliquity);

    SunPlace sun;
    sun.longitude = low_apparent_longitude(low.true_longitude, rev360(125.04 - 1934.136 * t));
    sun.radius = low.radius;
    complete_sun(observer, jd, obliquity, nutation, sun);
    sun.equation_of_time = equation_of_time(low.mean_longitude - 0.0057183 - sun.right_ascension +
                                            nutation * std::cos(obliquity * radians_per_degree));
    return sun;
}

void modcorsl(double /*pi_value*/, double jd, double& right_ascension, double& declination,
              double& topocentric_right_ascension, double& topocentric_declination, double& longitude,
              double& latitude, double& topocentric_longitude, double& topocentric_latitude, double& radius,
              double& equation_of_time) {
    const SunPlace sun = sun_low(stored_observer(), jd);
    SunOutputs{right_ascension, declination, topocentric_right_ascension, topocentric_declination,
               longitude,       latitude,    topocentric_longitude,       topocentric_latitude,
               radius}
        .take(sun);
    equation_of_time = sun.equation_of_time;
}

} // namespace halvane
