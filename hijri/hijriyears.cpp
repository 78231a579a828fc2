// SPDX-License-Identifier: MIT
#include "hijri/hijriyears.h"

namespace halvane {

int HijriYears::difference(std::size_t rule, std::size_t month) const {
    return static_cast<int>(rules[rule].months[month].first_day - rules.front().months[month].first_day);
}

std::optional<HijriYears> hijri_years(const TheoryPointer& theory, const std::vector<HijriSettings>& rules,
                                      int first, int last, Progress& progress) {
    constexpr int months = 12;
    HijriYears years{first, last, {}};
    const double part = 100.0 / static_cast<double>(rules.size());
    for (const HijriSettings& settings : rules) {
        const auto done = static_cast<double>(years.rules.size());
        StageProgress stage(progress, done * part, (done + 1) * part);
        std::optional<std::vector<HijriMonth>> made = hijri_months(
            theory, settings, HijriMonthNumber::of(first, 1), HijriMonthNumber::of(last, months), stage);
        if (!made)
            return std::nullopt;
        years.rules.push_back({settings, *std::move(made)});
    }
    return years;
}

} // namespace halvane
