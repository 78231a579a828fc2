// SPDX-License-Identifier: MIT
#pragma once

#include "calendar/hijricalendar.h"

#include <memory>
#include <vector>

namespace halvane {

/// Months of 29 and 30 days in turn, where the tabular ones have 30 and 29: each month of an even number
/// begins a day before the tabular one. The last month of a leap year has 31.
inline HijriReckoningPointer other_reckoning() {
    return std::make_shared<HijriReckoning>(HijriReckoning{
        {"Other", "آخر"}, [](double first, double last) {
            const HijriDate from = hijri_of_day_number(first);
            const HijriDate to = hijri_of_day_number(last);
            const int begin =
                HijriMonthNumber::of(static_cast<int>(from.year), static_cast<int>(from.month)).value - 1;
            const int end =
                HijriMonthNumber::of(static_cast<int>(to.year), static_cast<int>(to.month)).value + 2;
            std::vector<double> days;
            for (HijriMonthNumber month{begin}; month.value <= end; ++month.value)
                days.push_back(day_number_of_hijri(month.year(), month.month(), 1) -
                               (month.month() % 2 == 0 ? 1 : 0));
            return HijriCalendar({begin}, std::move(days));
        }});
}

} // namespace halvane
