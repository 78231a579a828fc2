// SPDX-License-Identifier: MIT
#include "calendar/platformdate.h"

#include <cmath>

namespace halvane {

double platform_day_count(double year, double month, double day) {
    const double months = std::nearbyint(month) - 1;
    const double y = std::nearbyint(year) + std::floor(months / 12);
    const double m = months - 12 * std::floor(months / 12) + 1;
    // Years counted from March, so that the leap day comes last.
    const double shifted_year = m > 2 ? y : y - 1;
    const double shifted_month = m > 2 ? m - 3 : m + 9;
    const double leap_days =
        std::floor(shifted_year / 4) - std::floor(shifted_year / 100) + std::floor(shifted_year / 400);
    return 365 * shifted_year + leap_days + std::floor((153 * shifted_month + 2) / 5) + std::nearbyint(day);
}

} // namespace halvane
