// SPDX-License-Identifier: MIT
#include "crescent/publishedcriteria.h"

#include "ephemeris/modgeneral.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace halvane {
namespace {

constexpr double last_daz = 20; ///< of the published tables [deg]

/// 1 - cos of an angle in degrees.
double versed_sine(double angle) {
    return 1 - std::cos(angle * radians_per_degree);
}

} // namespace

double yallop_width(double parallax, double altitude, double elongation) {
    constexpr double moon_radius = 0.27245; // in equatorial radii of the Earth
    const double semidiameter = moon_radius * parallax * 60;
    const double sine_parallax = std::sin(parallax * radians_per_degree);
    return semidiameter * (1 + std::sin(altitude * radians_per_degree) * sine_parallax) *
           versed_sine(elongation);
}

double maunder_least_arcv(double daz) {
    return 11 - daz / 20 - daz * daz / 100;
}

double schoch_least_arcv(double daz) {
    return 10.3743 - 0.0137 * daz - 0.0097 * daz * daz;
}

double bruin_width(double elongation) {
    constexpr double semidiameter = 15;
    return semidiameter * versed_sine(elongation);
}

double bruin_least_arcv(double width) {
    constexpr double last_width = 3;
    const double w = std::min(width, last_width);
    return 12.4023 + w * (-9.4878 + w * (3.9512 - 0.5632 * w));
}

std::optional<double> ilyas_least_arcv(double daz) {
    if (daz > last_daz)
        return std::nullopt;
    return 10.2833 + daz * (-0.0027357 + daz * (-0.0136649 + 0.00021192 * daz));
}

std::optional<double> saao_least_limb(double daz) {
    constexpr std::array<double, 5> column{8.2, 7.8, 6.8, 5.7, 4.5};
    constexpr double step = 5;
    if (daz > last_daz)
        return std::nullopt;
    const std::size_t left = std::min(static_cast<std::size_t>(daz / step), column.size() - 2);
    const double part = daz / step - static_cast<double>(left);
    return column[left] + part * (column[left + 1] - column[left]);
}

} // namespace halvane
