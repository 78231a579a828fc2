// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <variant>

namespace halvane {

/// Why a time does not exist; printed "----", "Up", "Down", "Bright", "Dark".
enum class NoEvent { none, up, down, bright, dark };

/// Decimal hours of the local day, or the reason why there are none.
using TaggedTime = std::variant<double, NoEvent>;

/// Whether hours lie in a local day.
inline bool within_day(double hours) {
    return hours >= 0 && hours < 24;
}

/// The hours, when there are any.
inline const double* hours_of(const TaggedTime& time) {
    return std::get_if<double>(&time);
}

inline bool is(const TaggedTime& time, NoEvent reason) {
    const NoEvent* found = std::get_if<NoEvent>(&time);
    return found != nullptr && *found == reason;
}

/// The printed form of a reason.
const char* text_of(NoEvent reason);

/// The printed form of a time: its clock text in the precision of modctim, or the reason why there is none.
std::string text_of(const TaggedTime& time, int precision);

} // namespace halvane
