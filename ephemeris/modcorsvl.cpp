#include "ephemeris/sun.h"

#include "calendar/moddeltat.h"
#include "ephemeris/coordinates.h"
#include "ephemeris/earthorientation.h"
#include "ephemeris/fastplace.h"
#include "ephemeris/interpolation.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/orientationterms.h"
#include "ephemeris/sunplace.h"
#include "ephemeris/sunroutine.h"

namespace halvane {

namespace {

/// The fast geocentric ecliptic place, its latitude 0, with the orientation that it stands in.
struct FastSun {
    double longitude; ///< [deg]
    double radius;    ///< [AU]
    double obliquity; ///< [deg]
    double nutation;  ///< in longitude [deg]
};

FastSun computed_sun(double days) {
    const double t = days / 36525;
    const LowSun low = low_sun(t);
    const double node = rev360(125.04452 - 1934.136261 * t);
    const double moon = rev360(218.3165 + 481267.8813 * t);
    const LowNutation nutation = low_nutation(
        node * radians_per_degree, low.mean_longitude * radians_per_degree, moon * radians_per_degree);
    return {low_apparent_longitude(low.true_longitude, node), low.radius,
            mean_obliquity(t / 100) + nutation.obliquity, nutation.longitude};
}

InterpolatedSeries interpolated_sun([](double days) {
    const FastSun sun = computed_sun(days);
    return InterpolatedSeries::Values{sun.longitude, sun.radius, sun.obliquity, sun.nutation};
});

FastSun fast_sun(double jd) {
    double delta_t = 0;
    moddeltat(jd, delta_t);
    const double days = jd + delta_t - epoch_j2000;
    if (!interpolating)
        return computed_sun(days);
    const auto [longitude, radius, obliquity, nutation] = interpolated_sun.at(days);
    return {rev360(longitude), radius, obliquity, nutation};
}

} // namespace

SunPlace sun_fast(const Observer& observer, double jd) {
    const FastSun fast = fast_sun(jd);
    SunPlace sun;
    sun.longitude = fast.longitude;
    sun.radius = fast.radius;
    const SkyFrame frame = sky_frame(jd, fast.obliquity, fast.nutation);
    equatorial_of(frame, sun.longitude, sun.latitude, sun.right_ascension, sun.declination);
    add_topocentric(observer, frame, sun);
    return sun;
}

FastPlace sun_fast_place(double jd) {
    const FastSun sun = fast_sun(jd);
    FastPlace place;
    modeclequa(pi, jd, sun.obliquity, sun.longitude, 0, place.right_ascension, place.declination);
    place.distance = sun.radius;
    return place;
}

double sun_fast_longitude(const Observer& observer, double jd) {
    const FastSun sun = fast_sun(jd);
    return topocentric_longitude(observer, sky_frame(jd, sun.obliquity, sun.nutation), sun.longitude, 0,
                                 sun.radius, 'S');
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
