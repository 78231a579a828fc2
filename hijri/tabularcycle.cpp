// SPDX-License-Identifier: MIT
#include "hijri/tabularcycle.h"

#include <cmath>

namespace halvane {

double first_day_of(const TabularCycle& cycle, HijriMonthNumber month) {
    constexpr int common_year = 354;
    constexpr int least_month = 29;
    const int years = month.year() - 1;
    const int months = month.month() - 1;
    const double leap_years = std::floor((11 * years + cycle.added) / 30.0);
    const int days_of_months = least_month * months + (months + 1) / 2;
    return cycle.epoch + common_year * years + leap_years + days_of_months;
}

} // namespace halvane
