#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>

namespace halvane {

/// Today's six texts in the order of the panel's columns: Fajer, Shuroq, Dhohur, Aser, Maghreb, Isha.
using TodayTexts = std::array<std::string, 6>;

/// The prayer that comes next. Shuroq is no prayer and is never it.
struct NextPrayer {
    std::size_t column = 0;
    int minutes_left = 0;  ///< rounded up; 0 for one of tomorrow, whose time is not known
    bool tomorrow = false; ///< today's prayers are over: the first one of tomorrow

    bool operator==(const NextPrayer&) const = default;
};

/// The next prayer by the clock; a word in place of a time is passed over, and nothing is next when no prayer
/// has a time.
/// In     now  seconds since the day's 0 h
std::optional<NextPrayer> next_prayer(const TodayTexts& times, int now);

} // namespace halvane
