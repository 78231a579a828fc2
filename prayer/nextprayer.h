// SPDX-License-Identifier: MIT
#pragma once

#include "prayer/prayermoments.h"

#include <cstddef>
#include <optional>
#include <span>

namespace halvane {

/// The prayer that comes next. Shuroq is no prayer and is never it.
struct NextPrayer {
    std::size_t column = 0; ///< of the panel: Fajer, Shuroq, Dhohur, Aser, Maghreb, Isha
    int minutes_left = 0;   ///< rounded up, so at least 1
    double day = 0;         ///< day count of its civil date on the location's clock
    ShownClock clock;       ///< of the location
    double seconds = 0;     ///< Universal Time since the platform's day 0                         [s]

    bool operator==(const NextPrayer&) const = default;
};

/// The next prayer; nothing when none of the moments lies ahead.
/// In     moments  of today and the days about it, by time
///        now      Universal Time since the platform's day 0                                    [s]
std::optional<NextPrayer> next_prayer(std::span<const PrayerMoment> moments, double now);

} // namespace halvane
