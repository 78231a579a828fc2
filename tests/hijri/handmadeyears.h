// SPDX-License-Identifier: MIT
#pragma once

#include "hijri/hijriyears.h"
#include "tests/hijri/monthsofrule.h"

namespace halvane {

/// Two months by two rules, written by hand: no real ones.
inline HijriYears handmade_years(std::size_t rules) {
    HijriMonth first;
    first.number = HijriMonthNumber::of(1447, 9);
    first.first_day = day_number_of("2026-02-18");
    first.days = 30;
    first.margin = MonthMargin{MonthMargin::Of::lag, -4.25, 20, "s"};
    HijriMonth second;
    second.number = HijriMonthNumber::of(1447, 10);
    second.first_day = day_number_of("2026-03-20");
    second.days = 29;
    second.notes = static_cast<unsigned>(MonthNote::announced);
    second.announced_by = "Court, \"High\"";

    HijriYears years{1447, 1447, {}};
    HijriSettings settings;
    settings.rule = hijri_rule("umm-al-qura");
    years.rules.push_back({settings, {first, second}});
    if (rules > 1) {
        settings.rule = hijri_rule("tabular");
        first.first_day += 1;
        first.margin.reset();
        second.first_day -= 1;
        second.notes = 0;
        years.rules.push_back({settings, {first, second}});
    }
    return years;
}

} // namespace halvane
