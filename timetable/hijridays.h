// SPDX-License-Identifier: MIT
#pragma once

#include "timetable/span.h"

#include <optional>

namespace halvane {

/// The reckoning by which the Hijri dates of a span are told: null for the tabular calendar, also for days
/// that are not within hijri_timetable_years, unless they are of a Hijri month or year.
HijriReckoningPointer reckoning_within(const HijriReckoningPointer& hijri, const DaySpan& span);

/// The Hijri dates of the days of a span.
class HijriDays {
public:
    /// In     hijri  as reckoning_within gives it
    /// Error  raises RunTimeFailure, as the reckoning does
    HijriDays(const HijriReckoningPointer& hijri, const DaySpan& span);

    /// The date of a day of the span. In     jd  0 h of the civil date                               [d]
    HijriDate on(double jd) const;

private:
    std::optional<HijriCalendar> months_; ///< nothing: the tabular calendar
};

} // namespace halvane
