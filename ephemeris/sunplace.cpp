// SPDX-License-Identifier: MIT
#include "ephemeris/sunplace.h"

#include "base/failure.h"
#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"

#include <cmath>

namespace halvane {

double sun_mean_longitude(double u) {
    const double u2 = u * u;
    const double u3 = u2 * u;
    return 280.4664567 + 360007.6982779 * u + 0.03032028 * u2 + u3 / 49931 - u3 * u / 15299 -
           u3 * u2 / 1988000;
}

double equation_of_time(double e) {
    constexpr double many_turns = 36000;
    if (std::fabs(require_finite(e, {"the equation of time", "معادلة الزمن"})) > many_turns)
        e = std::fmod(e, 360);
    while (e <= -6)
        e += 360;
    while (e >= 6)
        e -= 360;
    return 4 * e;
}

void add_topocentric(const Observer& observer, const SkyFrame& frame, SunPlace& sun) {
    const TopocentricDirection place =
        topocentric_direction(observer, frame, sun.longitude, sun.latitude, sun.radius, 'S');
    sun.topocentric_longitude = place.longitude;
    sun.topocentric_latitude = place.latitude;
    equatorial_of(frame, sun.topocentric_longitude, sun.topocentric_latitude, sun.topocentric_right_ascension,
                  sun.topocentric_declination);
}

SunPlace apparent_sun(const Orientation& orientation, const EarthPlace& earth, double aberration) {
    const double tau = orientation.dynamical_days / 365250;
    constexpr double fk5_latitude = 1.0877777777e-05; // 0.03916"
    constexpr double fk5_longitude = 2.5e-05;         // 0.09"
    double longitude = rev360(earth.longitude * degrees_per_radian + 180);
    double latitude = -earth.latitude * degrees_per_radian;
    const double t = 10 * tau;
    const double l = (longitude - 1.397 * t - 0.00031 * t * t) * radians_per_degree;
    latitude += (std::cos(l) - std::sin(l)) * fk5_latitude;
    longitude -= fk5_longitude;

    SunPlace sun;
    sun.longitude = rev360(longitude + orientation.nutation_longitude + aberration);
    sun.latitude = latitude;
    sun.radius = earth.radius;
    equatorial_of(orientation.frame, sun.longitude, sun.latitude, sun.right_ascension, sun.declination);
    // The nutation goes in whole, without the cosine of the obliquity.
    sun.equation_of_time = equation_of_time(rev360(sun_mean_longitude(tau)) - 0.0057183 -
                                            sun.right_ascension + orientation.nutation_longitude);
    return sun;
}

LowSun low_sun(double t) {
    using std::sin;
    const double mean_longitude = rev360(sun_mean_longitude(t / 10));
    const double anomaly = rev360(357.5291 + 35999.0503 * t - 0.0001559 * t * t - 0.00000048 * t * t * t);
    const double eccentricity = rev360(0.016708617 - 0.000042037 * t - 0.0000001236 * t * t);
    const double m = anomaly * radians_per_degree;
    const double centre = (1.9146 - 0.004817 * t - 0.000014 * t * t) * sin(m) +
                          (0.019993 - 0.000101 * t) * sin(2 * m) + 0.00029 * sin(3 * m);
    const double true_anomaly = rev360(anomaly + centre) * radians_per_degree;
    return {mean_longitude, rev360(mean_longitude + centre),
            1.000001018 * (1 - eccentricity * eccentricity) / (1 + eccentricity * std::cos(true_anomaly))};
}

double low_apparent_longitude(double true_longitude, double node) {
    return rev360(true_longitude - 0.00569 - 0.00478 * std::sin(node * radians_per_degree));
}

} // namespace halvane
