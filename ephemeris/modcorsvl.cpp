#include "ephemeris/sun.h"

#include "calendar/moddeltat.h"
#include "ephemeris/earthorientation.h"
#include "ephemeris/meanobliquity.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/sunplace.h"
#include "ephemeris/sunroutine.h"

namespace halvane {

SunPlace sun_fast(const Observer& observer, double jd) {
    double delta_t = 0;
    moddeltat(jd, delta_t);
    const double t = (jd + delta_t - epoch_j2000) / 36525;
    const LowSun low = low_sun(t);
    const double node = rev360(125.04452 - 1934.136261 * t);
    const double moon = rev360(218.3165 + 481267.8813 * t);
    const LowNutation nutation = low_nutation(
        node * radians_per_degree, low.mean_longitude * radians_per_degree, moon * radians_per_degree);

    SunPlace sun;
    sun.longitude = low_apparent_longitude(low.true_longitude, node);
    sun.radius = low.radius;
    complete_sun(observer, jd, mean_obliquity(t / 100) + nutation.obliquity, nutation.longitude, sun);
    return sun;
}

void modcorsvl(double observer_longitude, double observer_latitude, double jd, double& right_ascension,
               double& declination, double& topocentric_right_ascension, double& topocentric_declination,
               double& longitude, double& latitude, double& topocentric_longitude,
               double& topocentric_latitude, double& radius) {
    SunOutputs{right_ascension, declination, topocentric_right_ascension, topocentric_declination,
               longitude,       latitude,    topocentric_longitude,       topocentric_latitude,
               radius}
        .take(sun_fast(observer_at(observer_longitude, observer_latitude, 0), jd));
}

} // namespace halvane
