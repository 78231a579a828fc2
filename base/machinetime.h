// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace halvane {

/// A date and clock as a machine shows it.
struct MachineTime {
    int year = 2000;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

/// The date (proleptic Gregorian) and clock that a count of seconds since 1970 January 1, 0 h shows.
inline MachineTime shown_at(std::chrono::sys_seconds moment) {
    const auto midnight = std::chrono::floor<std::chrono::days>(moment);
    const std::chrono::year_month_day date(midnight);
    const std::chrono::hh_mm_ss clock(moment - midnight);
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            static_cast<int>(clock.hours().count()),
            static_cast<int>(clock.minutes().count()),
            static_cast<int>(clock.seconds().count())};
}

} // namespace halvane
