// SPDX-License-Identifier: MIT
#include "ephemeris/modgeneral.h"

#include "base/failure.h"

#include <cmath>

namespace halvane {
namespace {

double fraction_of_turn(double x) {
    const double turns = x / 360;
    return (turns - std::trunc(turns)) * 360;
}

} // namespace

double atan2(double x, double y) {
    if (x > 0)
        return std::atan(y / x);
    if (x < 0)
        return std::atan(y / x) + pi;
    if (y > 0)
        return pi / 2;
    return y < 0 ? -pi / 2 : 0;
}

double reduce360(double x) {
    if (x < 0)
        x = fraction_of_turn(x) + 360;
    if (x > 360)
        x = fraction_of_turn(x);
    return x;
}

double rev360(double x) {
    x = reduce360(x);
    return x == 360 ? 0 : x;
}

double rev180(double x) {
    if (x < -180)
        return x + 360;
    return x > 180 ? x - 360 : x;
}

double revpi(double x) {
    if (x < -pi)
        return x + 2 * pi;
    return x > pi ? x - 2 * pi : x;
}

double asin(double x) {
    return std::atan(x / std::sqrt(1 - x * x));
}

double acos(double x) {
    return std::atan(-x / std::sqrt(1 - x * x)) + 2 * std::atan(1.0);
}

double round_half_even(double x) {
    return std::nearbyint(x);
}

double turn_into_360(double x) {
    constexpr double many_turns = 36000;
    if (std::fabs(require_finite(x, {"an angle", "زاوية"})) > many_turns)
        x = std::fmod(x, 360);
    while (x < 0)
        x += 360;
    while (x >= 360)
        x -= 360;
    return x;
}

} // namespace halvane
