// SPDX-License-Identifier: MIT
#include "calendar/modjul.h"

#include <cmath>

namespace halvane {

void modjul(double year, double month, double day, double hours, double& jd) {
    double y = year;
    double m = month;
    const double d = day + hours / 24;
    if (m == 1 || m == 2) {
        y -= 1;
        m += 12;
    }
    const bool gregorian = y > 1582 || (y == 1582 && m > 10) || (y == 1582 && m == 10 && d > 15);
    double b = 0;
    if (gregorian) {
        const double a = std::floor(y / 100);
        b = 2 - a + std::floor(a / 4);
    }
    jd = std::floor(365.25 * (y + 4716)) + std::floor(30.6001 * (m + 1)) + d + b - 1524.5;
}

} // namespace halvane
