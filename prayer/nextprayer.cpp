// SPDX-License-Identifier: MIT
#include "prayer/nextprayer.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace halvane {

namespace {

constexpr double seconds_per_minute = 60;
/// The panel's columns of the five prayers.
constexpr std::array<std::size_t, 5> prayer_columns{0, 2, 3, 4, 5};

} // namespace

std::optional<NextPrayer> next_prayer(std::span<const PrayerMoment> moments, double now) {
    const auto next = std::find_if(moments.begin(), moments.end(),
                                   [now](const PrayerMoment& moment) { return moment.seconds > now; });
    if (next == moments.end())
        return std::nullopt;
    return NextPrayer{prayer_columns.at(static_cast<std::size_t>(next->prayer)),
                      static_cast<int>(std::ceil((next->seconds - now) / seconds_per_minute)), next->day,
                      next->clock, next->seconds};
}

} // namespace halvane
