#include "ephemeris/sun.h"

#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/sunplace.h"
#include "ephemeris/sunroutine.h"

namespace halvane {

SunPlace geocentric_sun_low(double jd) {
    const Orientation& orientation = orientation_of(jd);
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

SunPlace sun_low(const Observer& observer, double jd) {
    SunPlace sun = geocentric_sun_low(jd);
    add_topocentric(observer, orientation_of(jd).frame, sun);
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
