// SPDX-License-Identifier: MIT
#pragma once

#include "events/phase.h"
#include "hijri/feasts.h"
#include "hijri/hijrimonths.h"
#include "timetable/timetable.h"

#include <optional>
#include <vector>

namespace halvane {

/// A day of a Hijri month.
struct MonthDay {
    HijriDate hijri;
    double day_number = 0;            ///< Julian day of its noon, a whole number                 [d]
    int weekday = 0;                  ///< of its daylight: 0 Sunday to 6 Saturday
    std::optional<Phase> phase;       ///< that falls on its civil date, by the place's clock
    std::vector<const Feast*> feasts; ///< a white day among them
    bool is_white_day() const;
};

/// A phase as a timetable names it.
MoonOfDay moon_of(Phase phase);

/// A Hijri month, day by day.
struct MonthSheet {
    HijriSettings settings;
    HijriMonth month;
    TimetablePlace place; ///< by whose clock the phases fall on their dates
    std::vector<MonthDay> days;
};

/// The months from one to another by a rule. Nothing after a cancel.
/// In     theory       with `termfull.vsk`, `elp.vsk` and `mterm.vsk`
///        first, last  months of hijri_rule_years
///        place        whose clock gives the phases their dates
/// Accuracy and errors as those of hijri_months.
std::optional<std::vector<MonthSheet>> month_sheets(const TheoryPointer& theory,
                                                    const HijriSettings& settings, HijriMonthNumber first,
                                                    HijriMonthNumber last, const TimetablePlace& place,
                                                    Progress& progress);

/// One month, as month_sheets.
std::optional<MonthSheet> month_sheet(const TheoryPointer& theory, const HijriSettings& settings,
                                      HijriMonthNumber month, const TimetablePlace& place,
                                      Progress& progress);

} // namespace halvane
