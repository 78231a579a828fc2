// SPDX-License-Identifier: MIT
#pragma once

#include "base/machinetime.h"

#include <chrono>

namespace halvane {

/// A local clock that a test sets and lets run.
class TestClock {
public:
    using Days = std::chrono::local_days;
    using Time = std::chrono::local_seconds;

    static Time at(int year, unsigned month, unsigned day, int hour = 0, int minute = 0, int second = 0) {
        return Days(std::chrono::year(year) / std::chrono::month(month) / std::chrono::day(day)) +
               std::chrono::hours(hour) + std::chrono::minutes(minute) + std::chrono::seconds(second);
    }

    static MachineTime shown(Time time) {
        const auto day = std::chrono::floor<std::chrono::days>(time);
        const std::chrono::year_month_day date(day);
        const std::chrono::hh_mm_ss clock(time - day);
        return {static_cast<int>(date.year()),
                static_cast<int>(static_cast<unsigned>(date.month())),
                static_cast<int>(static_cast<unsigned>(date.day())),
                static_cast<int>(clock.hours().count()),
                static_cast<int>(clock.minutes().count()),
                static_cast<int>(clock.seconds().count())};
    }
};

} // namespace halvane
