// SPDX-License-Identifier: MIT
#pragma once

#include "calendar/hijricalendar.h"

namespace halvane {

/// The tabular calendar: 30 years of 10631 days, 11 of them leap years, months of 30 and 29 days by turns.
struct TabularCycle {
    int added = 14;        ///< the year y is a leap year where (11 y + added) mod 30 < 11; 0 to 29
    int epoch = 1'948'440; ///< day number of 1 Muharram 1: 16 July 622, the civil epoch            [d]
};

/// A day before the civil epoch: 15 July 622, the astronomical one.
inline constexpr int astronomical_epoch = 1'948'439;

/// Day number of the first day of a month.
double first_day_of(const TabularCycle& cycle, HijriMonthNumber month);

} // namespace halvane
