// SPDX-License-Identifier: MIT
#include "ephemeris/moonplace.h"

#include "ephemeris/coordinates.h"
#include "ephemeris/ephemeris.h"
#include "ephemeris/fastplace.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/seriessums.h"

#include <array>
#include <cmath>

namespace halvane {
namespace {

/// Arguments of the theory at one instant                                                [rad]
struct Arguments {
    double mean_longitude;
    std::array<double, 5> fundamental; ///< D, M, M', F; Omega has no part
    double a1, a2, a3;
    double eccentricity; ///< E of the Earth's orbit, a factor
};

double reduced(double degrees) {
    return reduce360(degrees) * radians_per_degree;
}

Arguments arguments_at(double t) {
    const double t2 = t * t;
    const double t3 = t2 * t;
    const double t4 = t2 * t2;
    Arguments a{};
    // 189474 in the third order of the mean longitude is this system's own divisor.
    a.mean_longitude =
        reduced(218.3164591 + 481267.88134236 * t - 0.0013268 * t2 + t3 / 189474 - t4 / 65194000);
    a.fundamental = {
        reduced(297.8502042 + 445267.1115168 * t - 0.00163 * t2 + t3 / 545868 - t4 / 113065000),
        reduced(357.5291092 + 35999.0502909 * t - 0.0001536 * t2 + t3 / 24490000),
        reduced(134.9634114 + 477198.8676313 * t + 0.008997 * t2 + t3 / 69699 - t4 / 14712000),
        reduced(93.2720993 + 483202.0175273 * t - 0.0034029 * t2 - t3 / 3526000 + t4 / 863310000), 0};
    a.a1 = reduced(119.75 + 131.849 * t);
    a.a2 = reduced(53.09 + 479264.29 * t);
    a.a3 = reduced(313.45 + 481266.484 * t);
    a.eccentricity = 1 - 0.002516 * t - 0.0000074 * t2;
    return a;
}

constexpr std::size_t longitude_sum = 0; ///< [1e-6 deg]
constexpr std::size_t latitude_sum = 1;  ///< [1e-6 deg]
constexpr std::size_t distance_sum = 2;  ///< [0.001 km]
constexpr std::size_t rows = padded(moon_rows);
constexpr std::array<TermGroup, 3> groups{{{TermFunction::sine, 0, 0, rows, longitude_sum},
                                           {TermFunction::sine, rows, rows, rows, latitude_sum},
                                           {TermFunction::cosine, 2 * rows, 0, rows, distance_sum}}};

std::array<double, groups.size()> periodic_sums(const PeriodicTerms& table, const Arguments& a) {
    // Each multiple of M, once or twice, brings a factor E.
    const double squared = a.eccentricity * a.eccentricity;
    std::array<double, 2 * rows> factor; // NOLINT: filled whole by the next loop
    for (std::size_t i = 0; i < factor.size(); ++i) {
        const double m = std::fabs(table.m[i]);
        factor[i] = m == 1 ? a.eccentricity : m == 2 ? squared : 1;
    }
    std::array<double, 3 * rows> amplitude; // NOLINT: filled whole by the next loops
    for (std::size_t i = 0; i < factor.size(); ++i)
        amplitude[i] = table.sine[i] * factor[i];
    for (std::size_t i = 0; i < rows; ++i)
        amplitude[2 * rows + i] = table.cosine[i] * factor[i];
    std::array<double, groups.size()> sums{};
    series_sums().of_multiples({table.d.data(), table.m.data(), table.m_prime.data(), table.f.data(),
                                table.omega.data(), a.fundamental.data()},
                               amplitude.data(), {groups.data(), groups.size()}, sums.data());
    return sums;
}

} // namespace

InterpolatedSeries::Values periodic_moon_values(const Theory& theory, double days) {
    using std::sin;
    const Arguments a = arguments_at(10 * (days / 365250));
    const double l = a.mean_longitude;
    const double m_prime = a.fundamental[2];
    const double f = a.fundamental[3];
    const auto sums = periodic_sums(theory.mterm().moon, a);
    const double added_longitude = 3958 * sin(a.a1) + 1962 * sin(l - f) + 318 * sin(a.a2);
    const double added_latitude = -2235 * sin(l) + 382 * sin(a.a3) + 175 * sin(a.a1 - f) +
                                  175 * sin(a.a1 + f) + 127 * sin(l - m_prime) - 115 * sin(l + m_prime);
    return {l * degrees_per_radian + (sums[longitude_sum] + added_longitude) / 1000000,
            (sums[latitude_sum] + added_latitude) / 1000000, 385000.56 + sums[distance_sum] / 1000};
}

EclipticMoon periodic_moon(Ephemeris& ephemeris, double days) {
    if (ephemeris.interpolated() == nullptr) {
        const auto [longitude, latitude, distance, none] = periodic_moon_values(ephemeris.theory(), days);
        return {longitude, latitude, distance};
    }
    const auto [longitude, latitude, distance, none] = ephemeris.interpolated()->moon.at(days);
    return {rev360(longitude), latitude, distance};
}

MoonPlace ecliptic_moon(const EclipticMoon& moon) {
    MoonPlace place;
    place.longitude = moon.longitude;
    place.latitude = moon.latitude;
    place.distance = moon.distance;
    return place;
}

MoonPlace geocentric_moon(const SkyFrame& frame, const EclipticMoon& moon) {
    MoonPlace place = ecliptic_moon(moon);
    equatorial_of(frame, place.longitude, place.latitude, place.right_ascension, place.declination);
    return place;
}

void add_topocentric(const Observer& observer, const SkyFrame& frame, MoonPlace& moon) {
    const TopocentricPlace topocentric =
        topocentric_place(observer, frame, moon.longitude, moon.latitude, moon.distance, 'M');
    moon.topocentric_longitude = topocentric.longitude;
    moon.topocentric_latitude = topocentric.latitude;
    moon.parallax = topocentric.parallax;
    moon.semidiameter = topocentric.semidiameter;
    moon.topocentric_semidiameter = topocentric.topocentric_semidiameter;
    equatorial_of(frame, moon.topocentric_longitude, moon.topocentric_latitude,
                  moon.topocentric_right_ascension, moon.topocentric_declination);
}

} // namespace halvane
