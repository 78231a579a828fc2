// SPDX-License-Identifier: MIT
#pragma once

#include "timetable/timetable.h"

#include <optional>

namespace halvane {

/// The reckoning by which the Hijri dates of a span are told; null for the tabular calendar.
HijriReckoningPointer reckoning_within(const HijriReckoningPointer& hijri, const DaySpan& span);

/// The Hijri dates of a timetable's days.
class HijriDays {
public:
    /// In     settings  with a reckoning as reckoning_within gives it
    /// Error  raises RunTimeFailure, as the reckoning does
    explicit HijriDays(const TimetableSettings& settings);

    /// The date of a day of the span. In     jd  0 h of the civil date                               [d]
    HijriDate on(double jd) const;

private:
    std::optional<HijriCalendar> months_; ///< nothing: the tabular calendar
};

} // namespace halvane
