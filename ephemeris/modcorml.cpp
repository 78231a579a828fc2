#include "ephemeris/earthorientation.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/moonplace.h"

namespace halvane {

MoonPlace moon_low(const Observer& observer, double jd) {
    double nutation = 0;
    double nutation_obliquity = 0;
    double obliquity = 0;
    modobliquity(jd, nutation, nutation_obliquity, obliquity);
    EclipticMoon moon = periodic_moon(jd + days_to_dynamical_time(jd) - epoch_j2000);
    moon.longitude += nutation;
    return complete_moon(observer, jd, obliquity, nutation, moon);
}

void modcorml(double /*pi_value*/, double jd, double& right_ascension, double& declination,
              double& topocentric_right_ascension, double& topocentric_declination, double& longitude,
              double& latitude, double& topocentric_longitude, double& topocentric_latitude, double& parallax,
              double& semidiameter, double& topocentric_semidiameter) {
    const MoonPlace moon = moon_low(stored_observer(), jd);
    MoonOutputs{right_ascension, declination,  topocentric_right_ascension, topocentric_declination,
                longitude,       latitude,     topocentric_longitude,       topocentric_latitude,
                parallax,        semidiameter, topocentric_semidiameter}
        .take(moon);
}

} // namespace halvane
