// SPDX-License-Identifier: MIT
#include "crescent/skyplaces.h"

#include "ephemeris/modgeneral.h"
#include "ephemeris/moon.h"
#include "ephemeris/sun.h"

#include <algorithm>
#include <cmath>

namespace halvane {
namespace {

constexpr double piece_days = 0.5;

SkyVector vector_of(double right_ascension, double declination, double distance) {
    const double alpha = right_ascension * radians_per_degree;
    const double delta = declination * radians_per_degree;
    return {distance * std::cos(delta) * std::cos(alpha), distance * std::cos(delta) * std::sin(alpha),
            distance * std::sin(delta)};
}

} // namespace

SkyPlaces sky_places(Ephemeris& ephemeris, double universal) {
    const Instant instant = Instant::of_ut1(universal);
    const SunPlace sun = geocentric_sun_high(ephemeris, instant);
    const MoonPlace moon = geocentric_moon_medium(ephemeris, instant);
    return {vector_of(sun.right_ascension, sun.declination, sun.radius),
            vector_of(moon.right_ascension, moon.declination, moon.distance),
            ephemeris.orientation(instant).frame.sidereal_time};
}

SkyPolynomials::SkyPolynomials(Ephemeris& ephemeris, double first, double last) : first_(first) {
    const double count = std::max(1.0, std::ceil((last - first) / piece_days));
    for (double piece = 0; piece < count; ++piece)
        pieces_.push_back(piece_of(ephemeris, first + (piece + 0.5) * piece_days));
}

/// The polynomials through the nodes, from divided sums over the Chebyshev polynomials to powers.
SkyPolynomials::Piece SkyPolynomials::piece_of(Ephemeris& ephemeris, double middle) {
    std::array<std::array<double, values>, nodes> at_nodes; // NOLINT: filled whole below
    for (std::size_t k = 0; k < nodes; ++k) {
        const double x = std::cos(pi * (static_cast<double>(k) + 0.5) / nodes);
        const SkyPlaces places = sky_places(ephemeris, middle + x * piece_days / 2);
        at_nodes[k] = {places.sun[0],  places.sun[1],  places.sun[2],        places.moon[0],
                       places.moon[1], places.moon[2], places.sidereal_time, 0};
    }
    // The powers of T0, T1 and so on: T(n+1) = 2 x T(n) - T(n-1).
    std::array<std::array<double, nodes>, nodes> powers{};
    powers[0][0] = 1;
    powers[1][1] = 1;
    for (std::size_t n = 2; n < nodes; ++n)
        for (std::size_t power = 0; power < nodes; ++power)
            powers[n][power] = (power > 0 ? 2 * powers[n - 1][power - 1] : 0) - powers[n - 2][power];
    // What is left beside the middle's values is small, and so is its rounding.
    const std::array<double, values> at_middle = at_nodes[nodes / 2];
    Piece piece{at_middle};
    for (std::size_t value = 0; value < values; ++value)
        for (std::size_t n = 0; n < nodes; ++n) {
            double sum = 0;
            for (std::size_t k = 0; k < nodes; ++k)
                sum += (at_nodes[k][value] - at_middle[value]) *
                       std::cos(pi * static_cast<double>(n) * (static_cast<double>(k) + 0.5) / nodes);
            const double coefficient = sum * (n == 0 ? 1.0 : 2.0) / nodes;
            for (std::size_t power = 0; power <= n; ++power)
                piece[power][value] += coefficient * powers[n][power];
        }
    return piece;
}

SkyPlaces SkyPolynomials::at(double universal) const {
    const double last = static_cast<double>(pieces_.size() - 1);
    const double index = std::clamp(std::floor((universal - first_) / piece_days), 0.0, last);
    const double x = 2 * ((universal - first_) / piece_days - index) - 1;
    const Piece& piece = pieces_[static_cast<std::size_t>(index)];
    std::array<double, values> sum = piece[nodes - 1];
    for (std::size_t power = nodes - 1; power-- > 0;)
        for (std::size_t value = 0; value < values; ++value)
            sum[value] = sum[value] * x + piece[power][value];
    return {{sum[0], sum[1], sum[2]}, {sum[3], sum[4], sum[5]}, sum[6]};
}

} // namespace halvane
