// SPDX-License-Identifier: MIT
#pragma once

#include "calendar/taggedtime.h"

#include <compare>
#include <string>
#include <variant>

namespace halvane {

/// A clock time as it is shown, to the minute or to the second. Two of one run are in the order of their
/// texts.
struct ShownClock {
    int seconds = 0;        ///< of the day, whole minutes unless `to_second`; 0 to 86400 ("24:00")   [s]
    bool to_second = false; ///< seconds are shown

    auto operator<=>(const ShownClock&) const = default;
};

/// The clock of decimal hours, modulo 24 h, rounded half to even.
/// In     precision  0 to the second, any other to the minute
/// Returns 24 h to the second, or to the minute with precision 1, for the last half unit of a day.
/// Error  raises RunTimeFailure for hours that are not finite.
ShownClock shown_clock(int precision, double hours);

/// "hh:mm" or "hh:mm:ss"
std::string text_of(const ShownClock& clock);

/// What is shown of a time: its clock, or why there is none.
using ShownTime = std::variant<ShownClock, NoEvent>;

ShownTime shown_time(const TaggedTime& time, int precision);

/// Whether two times are shown by one text.
inline bool shown_alike(const TaggedTime& a, const TaggedTime& b, int precision) {
    return shown_time(a, precision) == shown_time(b, precision);
}

/// The clock, when there is one.
inline const ShownClock* clock_of(const ShownTime& time) {
    return std::get_if<ShownClock>(&time);
}

} // namespace halvane
