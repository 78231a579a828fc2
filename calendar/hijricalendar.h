// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "calendar/moddateconv.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace halvane {

/// A month of the Hijri calendar, counted through the years: 0 is Muharram of the year 1.
struct HijriMonthNumber {
    int value = 0;

    static constexpr HijriMonthNumber of(int year, int month) { return {(year - 1) * 12 + month - 1}; }
    constexpr int year() const { return (value - month() + 1) / 12 + 1; }
    constexpr int month() const { return (value % 12 + 12) % 12 + 1; } ///< 1 Muharram to 12 Thul Hejjah
    // clang-tidy takes the 0 of the comparison for a null pointer.
    constexpr auto operator<=>(const HijriMonthNumber&) const = default; // NOLINT(modernize-use-nullptr)
};

/// Months one after the other as some rule begins them: each day from the first to the last has one date.
class HijriCalendar {
public:
    /// In     first       the first month
    ///        first_days  day number of the first day of each month, rising; the last one is the day after
    ///                    the last month
    HijriCalendar(HijriMonthNumber first, std::vector<double> first_days);

    /// In     day_number  Julian day of the day's noon, a whole number. Nothing outside the months.
    std::optional<HijriDate> date_of(double day_number) const;

    /// The day number of a date; nothing outside the months, and for a 30th of a month of 29 days.
    std::optional<double> day_number_of(const HijriDate& date) const;

    HijriMonthNumber first_month() const { return first_; }
    HijriMonthNumber last_month() const;
    double first_day() const { return first_days_.front(); }
    double last_day() const { return first_days_.back() - 1; }
    /// Nothing outside the months.
    std::optional<double> first_day_of(HijriMonthNumber month) const;
    std::optional<int> days_of(HijriMonthNumber month) const;

private:
    HijriMonthNumber first_;
    std::vector<double> first_days_;
};

/// The months of a tabular year and around it, as everything reckons that is told no other rule.
HijriCalendar tabular_months(HijriMonthNumber first, HijriMonthNumber last);

/// A rule of months for who only wants dates of it. Any number of threads may ask.
struct HijriReckoning {
    TwinWords name; ///< "Umm al-Qura"
    /// Months that hold every day from one day number to another one.
    /// Error  raises RunTimeFailure
    std::function<HijriCalendar(double first, double last)> months;
};

/// Null where the tabular calendar is used.
using HijriReckoningPointer = std::shared_ptr<const HijriReckoning>;

} // namespace halvane
