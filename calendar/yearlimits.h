// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "stored/date.h"

#include <optional>

namespace halvane {

/// Years of a calendar, both ends inside.
struct YearRange {
    double first = 0;
    double last = 0;

    constexpr bool holds(double year) const { return year >= first && year <= last; }
};

/// Years for which the Sun, the Moon and Delta T have an answer: prayer, Moon and Qiblah times, crescent and
/// its world map, ephemeris, telescope. The day count begins in -4712; reports print four digits of a year.
inline constexpr YearRange theory_years{-4000, 9999};
/// The Hijri years that lie within them.
inline constexpr YearRange hijri_theory_years{-4700, 9600};
/// Years whose table of phases is whole. Its rows follow a mean lunation of the 20th century, which leaves
/// the later years step by step: the first year without its first phases is 7148.
inline constexpr YearRange phase_years{-4000, 7000};
/// Years that are converted between the two calendars.
inline constexpr YearRange converted_civil_years{622, 999999};
inline constexpr YearRange converted_hijri_years{1, 999999};

/// What the user is told of a year outside `range`; nothing for one inside it.
std::optional<Refusal> refused_year(double year, const YearRange& range);

/// The same of the first of a period's two years that is outside `theory_years`; the machine's date is not
/// looked at.
std::optional<Refusal> refused_period(const CalculationDate& date);

/// The same, with the menu that the stored period was typed in.
std::optional<Refusal> refused_stored_period(const CalculationDate& date);

} // namespace halvane
