// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>

namespace halvane {

/// Where a function crosses 0 between two places where its values differ in sign, by the rule of false
/// position as Illinois has it.
/// In     at_a, at_b  the values there
///        tolerance   the width of what is left unknown, in units of the argument
/// Source Dowell and Jarratt, BIT 11, 168 (1971).
template <class Function>
double bracketed_root(const Function& function, double a, double at_a, double b, double at_b,
                      double tolerance) {
    constexpr int most_steps = 60;
    for (int step = 0; step < most_steps && std::fabs(b - a) > tolerance; ++step) {
        double middle = (a * at_b - b * at_a) / (at_b - at_a);
        if (!(std::fabs(middle - a) < std::fabs(b - a) && std::fabs(middle - b) < std::fabs(b - a)))
            middle = (a + b) / 2;
        const double value = function(middle);
        if (value == 0)
            return middle;
        const double moved = std::fabs(middle - b);
        if ((value < 0) != (at_b < 0)) {
            a = b;
            at_a = at_b;
        } else {
            at_a /= 2;
        }
        b = middle;
        at_b = value;
        if (moved < tolerance / 2)
            break;
    }
    return b;
}

} // namespace halvane
