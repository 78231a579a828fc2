// SPDX-License-Identifier: MIT
#pragma once

#include "base/datenumbers.h"
#include "hijri/hijrimonths.h"

#include <optional>

namespace halvane {

/// A day in both calendars.
struct HijriDay {
    double day_number = 0; ///< Julian day of its noon, a whole number                              [d]
    DateNumbers civil;     ///< as the calendar of the reports counts it
    int weekday = 0;       ///< 0 Sunday to 6 Saturday
    HijriDate hijri;
    HijriMonth month; ///< that it lies in
};

/// A day, or why there is none.
struct HijriDayAnswer {
    std::optional<HijriDay> day;
    TwinWords refused; ///< in whole sentences
};

/// The day of a civil date by a rule. Refused: a date that the calendar has not, days before the first month
/// of hijri_rule_years or after the last one.
/// In     theory  as hijri_months takes it
/// Error  raises RunTimeFailure, as the ephemeris does
HijriDayAnswer day_of_civil(const TheoryPointer& theory, const HijriSettings& settings,
                            const DateNumbers& civil);

/// The day of a Hijri date by a rule. Refused: years outside hijri_rule_years, no such month, a day that the
/// month has not, as the 30th of a month of 29 days.
HijriDayAnswer day_of_hijri(const TheoryPointer& theory, const HijriSettings& settings,
                            const HijriDate& hijri);

} // namespace halvane
