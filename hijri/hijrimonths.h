// SPDX-License-Identifier: MIT
#pragma once

#include "base/progress.h"
#include "calendar/yearlimits.h"
#include "hijri/hijrirules.h"

#include <optional>
#include <string>
#include <vector>

namespace halvane {

/// By how much a condition was met or missed on the evening that decided when a month begins.
struct MonthMargin {
    enum class Of { lag, age, measure };
    Of of = Of::lag;
    double value = 0;       ///< met where positive; seconds of lag or of age at sunset, units of the measure
    double uncertainty = 0; ///< within which the theory cannot tell it from its limit
    const char* unit = "";  ///< "s", or that of the measure; empty for a mere number

    bool is_near_tie() const { return value < uncertainty && value > -uncertainty; }
};

/// What is told of a month besides its days.
enum class MonthNote {
    none = 0,
    announced = 1, ///< its start stands in the list of announced ones
    made_to_fit =
        2,         ///< its start is not the rule's: every month has 29 or 30 days, also beside announced ones
    completed = 4, ///< the month before has 30 days without a crescent after them
    seen_on_28th = 8,   ///< the month before has 28 days: the crescent was seen on the evening of the 28th
    undecided = 32,     ///< no evening that was asked showed a crescent
    rule_doubtful = 16, ///< by which rule these years were made is not known
};

/// A month of a rule.
struct HijriMonth {
    HijriMonthNumber number;
    double first_day = 0; ///< day number: Julian day of its noon, a whole number                   [d]
    int days = 0;
    std::optional<MonthMargin> margin; ///< of its start; nothing of tabular and announced ones
    unsigned notes = 0;                ///< of MonthNote, added up
    std::string announced_by;

    bool has(MonthNote note) const { return (notes & static_cast<unsigned>(note)) != 0; }
    bool may_differ() const { return margin && margin->is_near_tie(); }
};

/// The months from one to another by a rule, without a gap. Nothing after a cancel.
/// In     theory  with `termfull.vsk`, `elp.vsk`, which tabular months do not use
///        first, last  months of hijri_rule_years
/// Accuracy  as docs/accuracy.md compares them with published calendars; a month whose start hangs on less
///           than the theory's error says so.
/// Error  raises RunTimeFailure, as the ephemeris does
std::optional<std::vector<HijriMonth>> hijri_months(const TheoryPointer& theory,
                                                    const HijriSettings& settings, HijriMonthNumber first,
                                                    HijriMonthNumber last, Progress& progress);

/// The years that months are told of.
inline constexpr YearRange hijri_rule_years{1, hijri_theory_years.last};

/// The months as a calendar. In     months  without a gap, not empty
HijriCalendar calendar_of(const std::vector<HijriMonth>& months);

/// A rule as others take dates of it. It keeps what it has made.
HijriReckoningPointer reckoning_of(const TheoryPointer& theory, const HijriSettings& settings);

/// What is told of a month, in few words each: "may differ by a day", "announced by ...", "29 days from ...".
std::vector<TwinWords> notes_of(const HijriMonth& month);

/// The margin as text: "-4.6 s", "0.31 deg"; empty without one.
std::string margin_text(const HijriMonth& month);

/// "2026-02-18": a day number's civil date, as the calendar of the reports counts it.
std::string iso_date(double day_number);

} // namespace halvane
