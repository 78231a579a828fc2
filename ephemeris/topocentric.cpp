// SPDX-License-Identifier: MIT
#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/orientationterms.h"

#include <cmath>

namespace halvane {
namespace {

constexpr double earth_radius_km = 6378.137;

/// Horizontal parallax                                                                    [rad]
double parallax_of(char body, double distance) {
    constexpr double sun_parallax_at_1_au = 0.00244277777778;
    return body == 'S' ? sun_parallax_at_1_au / distance * radians_per_degree
                       : asin(earth_radius_km / distance);
}

/// Geocentric semidiameter                                                                [rad]
double semidiameter_of(char body, double distance) {
    constexpr double sun_semidiameter_at_1_au = 0.266563889;
    constexpr double moon_over_earth_radius = 0.2725076;
    return body == 'S' ? sun_semidiameter_at_1_au / distance * radians_per_degree
                       : asin(moon_over_earth_radius * earth_radius_km / distance);
}

/// The geocentric place less the observer's, in units of the body's distance: ecliptic, towards the equinox,
/// a quarter further east, and north.
struct Parallactic {
    double x, y, z;
    double longitude; ///< topocentric [rad]
};

Parallactic parallactic(const Observer& observer, const SkyFrame& frame, double longitude, double latitude,
                        double parallax) {
    using std::cos;
    using std::sin;
    const double theta = rev360(frame.sidereal_time + observer.longitude) * radians_per_degree;
    const double lambda = longitude * radians_per_degree;
    const double beta = latitude * radians_per_degree;
    const double sine_parallax = sin(parallax);
    const double sine_theta = sin(theta);
    const double cosine_beta = cos(beta);
    Parallactic p{};
    p.x = cos(lambda) * cosine_beta - observer.rho_cosine * sine_parallax * cos(theta);
    p.y = sin(lambda) * cosine_beta -
          sine_parallax * (observer.rho_sine * frame.sine_obliquity +
                           observer.rho_cosine * frame.cosine_obliquity * sine_theta);
    p.z = sin(beta) - sine_parallax * (observer.rho_sine * frame.cosine_obliquity -
                                       observer.rho_cosine * frame.sine_obliquity * sine_theta);
    p.longitude = atan2(p.x, p.y);
    return p;
}

} // namespace

TopocentricPlace topocentric_place(const Observer& observer, const SkyFrame& frame, double longitude,
                                   double latitude, double distance, char body) {
    const double parallax = parallax_of(body, distance);
    const double semidiameter = semidiameter_of(body, distance);
    const Parallactic p = parallactic(observer, frame, longitude, latitude, parallax);
    const double cosine_lambda = std::cos(p.longitude);
    const double beta_topocentric = std::atan(cosine_lambda * p.z / p.x);

    TopocentricPlace place;
    place.longitude = rev360(p.longitude * degrees_per_radian);
    place.latitude = beta_topocentric * degrees_per_radian;
    place.semidiameter = semidiameter * degrees_per_radian;
    place.topocentric_semidiameter =
        asin(cosine_lambda * std::cos(beta_topocentric) * std::sin(semidiameter) / p.x) * degrees_per_radian;
    place.parallax = parallax * degrees_per_radian;
    return place;
}

double topocentric_longitude(const Observer& observer, const SkyFrame& frame, double longitude,
                             double latitude, double distance, char body) {
    const Parallactic p = parallactic(observer, frame, longitude, latitude, parallax_of(body, distance));
    return rev360(p.longitude * degrees_per_radian);
}

double moon_parallax(double distance) {
    return parallax_of('M', distance) * degrees_per_radian;
}

} // namespace halvane
