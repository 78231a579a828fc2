// SPDX-License-Identifier: MIT
#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/orientationterms.h"

#include <array>
#include <cmath>
#include <cstddef>

namespace halvane {
namespace {

/// Horizontal parallax                                                                    [rad]
double parallax_of(char body, double distance) {
    return body == 'S' ? sun_parallax_at_1_au / distance * radians_per_degree
                       : asin(earth_radius_km / distance);
}

/// Geocentric semidiameter                                                                [rad]
double semidiameter_of(char body, double distance) {
    return body == 'S' ? sun_semidiameter_at_1_au / distance * radians_per_degree
                       : asin(moon_over_earth_radius * earth_radius_km / distance);
}

/// A geocentric place with its horizontal parallax [rad].
struct Shifted {
    const SkyFrame& frame;
    double longitude, latitude; ///< [deg]
    double parallax;
};

/// The geocentric place less the observer's, in units of the body's distance: ecliptic, towards the equinox
/// and a quarter further east.
struct Parallactic {
    double x, y;
    double longitude; ///< topocentric [rad]
    double sine_parallax;
    double sine_theta; ///< of the local sidereal time
};

/// Several places are taken step by step side by side: none of them waits for another's functions.
template <std::size_t N>
std::array<Parallactic, N> parallactic(const Observer& observer, const std::array<Shifted, N>& places) {
    std::array<Parallactic, N> shifts;  // NOLINT: filled whole by the loops
    std::array<double, N> cosine_theta; // NOLINT: the same
    for (std::size_t i = 0; i < N; ++i) {
        const double theta = rev360(places[i].frame.sidereal_time + observer.longitude) * radians_per_degree;
        shifts[i].sine_parallax = std::sin(places[i].parallax);
        shifts[i].sine_theta = std::sin(theta);
        cosine_theta[i] = std::cos(theta);
    }
    for (std::size_t i = 0; i < N; ++i) {
        const double lambda = places[i].longitude * radians_per_degree;
        const double cosine_beta = std::cos(places[i].latitude * radians_per_degree);
        const SkyFrame& frame = places[i].frame;
        Parallactic& p = shifts[i];
        p.x = std::cos(lambda) * cosine_beta - observer.rho_cosine * p.sine_parallax * cosine_theta[i];
        p.y = std::sin(lambda) * cosine_beta -
              p.sine_parallax * (observer.rho_sine * frame.sine_obliquity +
                                 observer.rho_cosine * frame.cosine_obliquity * p.sine_theta);
    }
    for (Parallactic& p : shifts)
        p.longitude = atan2(p.x, p.y);
    return shifts;
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
    const auto [p] = parallactic<1>(observer, {{{frame, longitude, latitude, parallax}}});
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

LongitudePair topocentric_longitudes(const Observer& observer, const GeocentricPlace& sun,
                                     const GeocentricPlace& moon) {
    const auto [of_sun, of_moon] = parallactic<2>(
        observer, {{{sun.frame, sun.longitude, sun.latitude, parallax_of('S', sun.distance)},
                    {moon.frame, moon.longitude, moon.latitude, parallax_of('M', moon.distance)}}});
    return {rev360(of_sun.longitude * degrees_per_radian), rev360(of_moon.longitude * degrees_per_radian)};
}

double moon_parallax(double distance) {
    return parallax_of('M', distance) * degrees_per_radian;
}

} // namespace halvane
