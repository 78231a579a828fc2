// SPDX-License-Identifier: MIT
#pragma once

#include "hijri/hijrimonths.h"

#include <functional>
#include <memory>
#include <optional>

namespace halvane {

/// What the sky says of the beginning of one month: the first evening on which the condition of a rule is
/// met.
struct RuledStart {
    std::optional<double> evening; ///< day number of its civil date; nothing when no evening meets it    [d]
    std::optional<MonthMargin> on_it;
    std::optional<MonthMargin> on_the_one_before;
    bool doubtful = false;  ///< which rule held in these years is not known
    double first_asked = 0; ///< day number of the first evening that was asked                        [d]

    /// The first day that follows from it: without an evening the third after the first that was asked, when
    /// every crescent is old enough.
    double first_day() const { return (evening ? *evening : first_asked + 2) + 1; }
};

/// A rule at work, for one thread.
class MonthRule {
public:
    virtual ~MonthRule() = default;
    virtual RuledStart start_of(HijriMonthNumber month) = 0;
    /// 29; 28 where people who see the crescent on the evening of the 28th end their month.
    virtual int least_days() const { return 29; }
    /// Whether its months hold their own lengths: no month before them is needed to tell their days.
    virtual bool is_tabular() const { return false; }
};

/// The geocentric conjunction before a month; Julian day, UT1                                      [d]
double conjunction_before(Ephemeris& ephemeris, HijriMonthNumber month);

/// The first of some evenings whose margin is positive, with the margin of the one before it.
/// In     first      day number of the first evening that may be it
///        evenings   how many are asked at most
///        margin_on  of an evening; nothing where there is none
RuledStart first_evening(double first, int evenings,
                         const std::function<std::optional<MonthMargin>(double evening)>& margin_on);

/// In     settings  outlive the rule
std::unique_ptr<MonthRule> month_rule(Ephemeris& ephemeris, const HijriSettings& settings);

} // namespace halvane
