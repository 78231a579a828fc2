#include "ephemeris/coordinates.h"
#include "ephemeris/earthorientation.h"
#include "ephemeris/fastplace.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/moonplace.h"

namespace halvane {

namespace {

/// The fast geocentric ecliptic place with the orientation that it stands in.
struct FastMoon {
    EclipticMoon place;
    double obliquity = 0; ///< [deg]
    double nutation = 0;  ///< in longitude [deg]
};

FastMoon fast_moon(double jd) {
    FastMoon moon{};
    double nutation_obliquity = 0;
    modobliquitylow(jd, nutation_obliquity, moon.nutation, moon.obliquity);
    moon.place = periodic_moon(jd + days_to_dynamical_time(jd) - epoch_j2000);
    moon.place.longitude += moon.nutation;
    return moon;
}

} // namespace

MoonPlace moon_fast(const Observer& observer, double jd) {
    const FastMoon moon = fast_moon(jd);
    const SkyFrame frame = sky_frame(jd, moon.obliquity, moon.nutation);
    MoonPlace place = geocentric_moon(frame, moon.place);
    add_topocentric(observer, frame, place);
    return place;
}

FastPlace moon_fast_place(double jd) {
    const FastMoon moon = fast_moon(jd);
    FastPlace place;
    modeclequa(pi, jd, moon.obliquity, moon.place.longitude, moon.place.latitude, place.right_ascension,
               place.declination);
    place.distance = moon.place.distance;
    return place;
}

double moon_fast_longitude(const Observer& observer, double jd) {
    const FastMoon moon = fast_moon(jd);
    return topocentric_longitude(observer, sky_frame(jd, moon.obliquity, moon.nutation), moon.place.longitude,
                                 moon.place.latitude, moon.place.distance, 'M');
}

void modcormvl(double observer_longitude, double observer_latitude, double jd, double& right_ascension,
               double& declination, double& topocentric_right_ascension, double& topocentric_declination,
               double& longitude, double& latitude, double& topocentric_longitude,
               double& topocentric_latitude, double& parallax, double& semidiameter,
               double& topocentric_semidiameter, double& distance) {
    const MoonPlace moon = moon_fast(observer_at(observer_longitude, observer_latitude, 0), jd);
    MoonOutputs{right_ascension, declination,  topocentric_right_ascension, topocentric_declination,
                longitude,       latitude,     topocentric_longitude,       topocentric_latitude,
                parallax,        semidiameter, topocentric_semidiameter}
        .take(moon);
    distance = moon.distance;
}

} // namespace halvane
