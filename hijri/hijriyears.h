// SPDX-License-Identifier: MIT
#pragma once

#include "hijri/hijrimonths.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace halvane {

/// Months by one rule.
struct RuleMonths {
    HijriSettings settings;
    std::vector<HijriMonth> months; ///< without a gap
};

/// Whole Hijri years by one or more rules.
struct HijriYears {
    int first = 0;
    int last = 0;
    std::vector<RuleMonths> rules; ///< each with the same months; not empty

    std::size_t months() const { return rules.front().months.size(); }
    /// How many days after the month of the first rule that of another one begins; negative: before it.
    int difference(std::size_t rule, std::size_t month) const;
};

/// The months of some years by each of some rules. Nothing after a cancel.
/// In     rules        not empty
///        first, last  years of hijri_rule_years, the last not before the first
/// Theory, accuracy and errors as those of hijri_months.
std::optional<HijriYears> hijri_years(const TheoryPointer& theory, const std::vector<HijriSettings>& rules,
                                      int first, int last, Progress& progress);

} // namespace halvane
