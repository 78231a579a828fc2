// SPDX-License-Identifier: MIT
#include "calendar/modjul.h"

#include <cmath>

namespace halvane {

void modjuc(double value, double& year, double& month, double& day) {
    const double z = std::floor(value);
    const double f = value - z;
    double a = z;
    if (z >= 2299161) {
        const double alpha = std::floor((z - 1867216.25) / 36524.25);
        a = z + 1 + alpha - std::floor(alpha / 4);
    }
    const double b = a + 1524;
    const double c = std::floor((b - 122.1) / 365.25);
    const double d = std::floor(365.25 * c);
    const double e = std::floor((b - d) / 30.6001);
    day = b - d - std::floor(30.6001 * e) + f;
    month = e < 14 ? e - 1 : e - 13;
    year = month > 2 ? c - 4716 : c - 4715;
}

} // namespace halvane
