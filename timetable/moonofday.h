// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "ephemeris/ephemeris.h"

#include <vector>

namespace halvane {

/// The Moon on a day: one of the four phases when it falls on the date, else what lies between two.
enum class MoonOfDay {
    new_moon,
    waxing_crescent,
    first_quarter,
    waxing_gibbous,
    full_moon,
    waning_gibbous,
    last_quarter,
    waning_crescent
};

/// "Full Moon", "crescent" ...
const TwinText& words_of(MoonOfDay moon);

/// The phases about a span of days.
class MoonPhases {
public:
    /// In     first, last  Julian days of Universal Time                                          [d]
    /// Needs `termfull.vsk`, `elp.vsk` and `mterm.vsk`.
    MoonPhases(Ephemeris& ephemeris, double first, double last);

    /// In     start, end  of the day on its clock, as Julian days of Universal Time within the span [d]
    MoonOfDay on(double start, double end) const;

private:
    struct Moment {
        double jd = 0; ///< UT1 [d]
        MoonOfDay phase{};
    };
    std::vector<Moment> moments_; ///< in the order of time, one before the span first
};

} // namespace halvane
