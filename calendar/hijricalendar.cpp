// SPDX-License-Identifier: MIT
#include "calendar/hijricalendar.h"

#include <algorithm>
#include <utility>

namespace halvane {

HijriCalendar::HijriCalendar(HijriMonthNumber first, std::vector<double> first_days)
    : first_(first), first_days_(std::move(first_days)) {}

std::optional<HijriDate> HijriCalendar::date_of(double day_number) const {
    const auto next = std::upper_bound(first_days_.begin(), first_days_.end(), day_number);
    if (next == first_days_.begin() || next == first_days_.end())
        return std::nullopt;
    const auto begun = std::prev(next);
    const HijriMonthNumber month{first_.value + static_cast<int>(begun - first_days_.begin())};
    return HijriDate{static_cast<double>(month.year()), static_cast<double>(month.month()),
                     day_number - *begun + 1};
}

std::optional<double> HijriCalendar::day_number_of(const HijriDate& date) const {
    const auto month = HijriMonthNumber::of(static_cast<int>(date.year), static_cast<int>(date.month));
    const std::optional<int> days = days_of(month);
    if (!days || date.day < 1 || date.day > *days)
        return std::nullopt;
    return *first_day_of(month) + date.day - 1;
}

HijriMonthNumber HijriCalendar::last_month() const {
    return {first_.value + static_cast<int>(first_days_.size()) - 2};
}

std::optional<double> HijriCalendar::first_day_of(HijriMonthNumber month) const {
    if (month < first_ || month > last_month())
        return std::nullopt;
    return first_days_[static_cast<std::size_t>(month.value - first_.value)];
}

std::optional<int> HijriCalendar::days_of(HijriMonthNumber month) const {
    const std::optional<double> begun = first_day_of(month);
    if (!begun)
        return std::nullopt;
    return static_cast<int>(first_days_[static_cast<std::size_t>(month.value - first_.value) + 1] - *begun);
}

HijriCalendar tabular_months(HijriMonthNumber first, HijriMonthNumber last) {
    std::vector<double> first_days;
    for (HijriMonthNumber month = first; month.value <= last.value + 1; ++month.value)
        first_days.push_back(day_number_of_hijri(month.year(), month.month(), 1));
    return {first, std::move(first_days)};
}

} // namespace halvane
