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

/// The geocentric place less the observer's, in units of the body's distance: ecliptic, towards the equinox
/// and a quarter further east.
struct Parallactic {
    double x, y;
    double longitude; ///< topocentric [rad]
    double sine_parallax;
    double sine_theta; ///< of the local sidereal time
};

Parallactic parallactic(const Observer& observer, const SkyFrame& frame, double longitude, double latitude,
                        double parallax) {
    using std::cos;
    using std::sin;
    const double theta = rev360(frame.sidereal_time + observer.longitude) * radians_per_degree;
    const double lambda = longitude * radians_per_degree;
    const double cosine_beta = cos(latitude * radians_per_degree);
    Parallactic p{};
    p.sine_parallax = sin(parallax);
    p.sine_theta = sin(theta);
    p.x = cos(lambda) * cosine_beta - observer.rho_cosine * p.sine_parallax * cos(theta);
    p.y = sin(lambda) * cosine_beta -
          p.sine_parallax * (observer.rho_sine * frame.sine_obliquity +
                             observer.rho_cosine * frame.cosine_obliquity * p.sine_theta);
    p.longitude = atan2(p.x, p.y);
    return p;
}

/// The part of the same difference towards the ecliptic's north.
double north_of(const Parallactic& p, const Observer& observer, const SkyFrame& frame, double latitude) {
    return std::sin(latitude * radians_per_degree) -
           p.sine_parallax * (observer.rho_sine * frame.cosine_obliquity -
                              observer.rho_cosine * frame.sine_obliquity * p.sine_theta);
}

/// The direction of the difference, with what a size needs of it.
struct Direction {
    double x;
    double longitude; ///< [rad]
    double cosine_longitude;
    double latitude; ///< [rad]

    TopocentricDirection in_degrees() const {
        return {rev360(longitude * degrees_per_radian), latitude * degrees_per_radian};
    }
};

Direction direction_of(const Observer& observer, const SkyFrame& frame, double longitude, double latitude,
                       double parallax) {
    const Parallactic p = parallactic(observer, frame, longitude, latitude, parallax);
    const double cosine = std::cos(p.longitude);
    return {p.x, p.longitude, cosine, std::atan(cosine * north_of(p, observer, frame, latitude) / p.x)};
}

} // namespace

TopocentricPlace topocentric_place(const Observer& observer, const SkyFrame& frame, double longitude,
                                   double latitude, double distance, char body) {
    const double parallax = parallax_of(body, distance);
    const double semidiameter = semidiameter_of(body, distance);
    const Direction direction = direction_of(observer, frame, longitude, latitude, parallax);

    TopocentricPlace place{direction.in_degrees()};
    place.semidiameter = semidiameter * degrees_per_radian;
    place.topocentric_semidiameter = asin(direction.cosine_longitude * std::cos(direction.latitude) *
                                          std::sin(semidiameter) / direction.x) *
                                     degrees_per_radian;
    place.parallax = parallax * degrees_per_radian;
    return place;
}

TopocentricDirection topocentric_direction(const Observer& observer, const SkyFrame& frame, double longitude,
                                           double latitude, double distance, char body) {
    return direction_of(observer, frame, longitude, latitude, parallax_of(body, distance)).in_degrees();
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
