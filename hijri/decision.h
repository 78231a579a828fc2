// SPDX-License-Identifier: MIT
#pragma once

#include "crescent/crescentevening.h"
#include "hijri/hijrimonths.h"
#include "hijri/hijrirules.h"

#include <initializer_list>
#include <optional>

namespace halvane {

/// How far the theory is to be trusted in the years around a day. What it cannot know is how the Earth
/// turns in the years to come; what the makers of a calendar reckon otherwise is the height of the place
/// (300 m move a lag by 5 s), the air on the horizon (half a minute of sunset) and minutes that are
/// rounded.
/// Source Huber, J. Geod. 80, 283 (2006) (Delta T to come).
struct TheoryError {
    double lag;     ///< [s]
    double age;     ///< [s]
    double degrees; ///< of an altitude or an elongation at sunset                                [deg]
};
TheoryError theory_error(double universal);

/// The margin that decides of conditions that all have to be met: the smallest, each in its own error.
MonthMargin deciding(std::initializer_list<MonthMargin> margins);

MonthMargin lag_margin(const CrescentEvening& evening);
MonthMargin age_margin(const CrescentEvening& evening);

/// The margins of a crescent that is to be seen: after the conjunction, the Moon setting after the Sun, in
/// the lowest class that counts or above. Nothing where the criterion has no answer.
/// In     seen_class  an index of the criterion's bands
std::optional<MonthMargin> seeing_margin(const CrescentEvening& evening, const CataloguedCriterion& criterion,
                                         const CriteriaSettings& limits, std::size_t seen_class);
/// The same where the criterion's value is known.
MonthMargin margin_of_value(const CrescentEvening& evening, const CataloguedCriterion& criterion,
                            double value, std::size_t seen_class);

} // namespace halvane
