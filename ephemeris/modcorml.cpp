#include "ephemeris/moonplace.h"

namespace halvane {

MoonPlace geocentric_moon_low(double jd) {
    const Orientation& orientation = orientation_of(jd);
    EclipticMoon moon = periodic_moon(orientation.dynamical_days);
    moon.longitude += orientation.nutation_longitude;
    return geocentric_moon(orientation.frame, moon);
}

MoonPlace moon_low(const Observer& observer, double jd) {
    MoonPlace moon = geocentric_moon_low(jd);
    add_topocentric(observer, orientation_of(jd).frame, moon);
    return moon;
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
