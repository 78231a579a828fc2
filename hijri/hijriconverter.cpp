// SPDX-License-Identifier: MIT
#include "hijri/hijriconverter.h"

#include "base/numberformat.h"
#include "calendar/civildate.h"
#include "timetable/placewords.h"
#include "timetable/span.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace halvane {
namespace {

constexpr double noon_after_midnight = 0.5;
constexpr int months_of_year = 12;

HijriDayAnswer refused(TwinWords words) {
    return {std::nullopt, std::move(words)};
}

TwinWords outside_words() {
    const std::string first = plain_number(hijri_rule_years.first);
    const std::string last = plain_number(hijri_rule_years.last);
    return {"Months are told of the Hijri years " + first + " to " + last + ".",
            "تعرف الأشهر للسنوات الهجرية من " + first + " إلى " + last + "."};
}

HijriMonthNumber month_within_years(int number) {
    const auto last = HijriMonthNumber::of(static_cast<int>(hijri_rule_years.last), months_of_year);
    return {std::clamp(number, HijriMonthNumber::of(1, 1).value, last.value)};
}

/// The months of a rule about one.
std::vector<HijriMonth> months_about(const TheoryPointer& theory, const HijriSettings& settings,
                                     HijriMonthNumber month) {
    NoProgress progress;
    return *hijri_months(theory, settings, month_within_years(month.value - 1),
                         month_within_years(month.value + 1), progress);
}

HijriDay day_of_month(const HijriMonth& month, double day_number) {
    constexpr int days_of_week = 7;
    constexpr double sunday = 6; // day number 6 is one
    const HijriDate hijri{static_cast<double>(month.number.year()), static_cast<double>(month.number.month()),
                          day_number - month.first_day + 1};
    return {day_number, civil_date(day_number),
            static_cast<int>(std::fmod(day_number - sunday, days_of_week)), hijri, month};
}

TwinWords no_such_day(const HijriMonth& month) {
    const std::string days = std::to_string(month.days);
    const std::string year = " " + std::to_string(month.number.year());
    return {hijri_month_name(month.number.month(), Language::english) + year + " has " + days + " days.",
            "عدد أيام " + hijri_month_name(month.number.month(), Language::arabic) + year + " هو " + days +
                "."};
}

} // namespace

HijriDayAnswer day_of_civil(const TheoryPointer& theory, const HijriSettings& settings,
                            const DateNumbers& civil) {
    const SpanAnswer span = dates_span(civil, civil);
    if (span.refused)
        return refused(sentence(*span.refused));
    const double day_number = span.span.first + noon_after_midnight;
    const HijriDate tabular = hijri_of_day_number(day_number);
    if (!hijri_rule_years.holds(tabular.year + 1) && !hijri_rule_years.holds(tabular.year - 1))
        return refused(outside_words());
    const auto about = HijriMonthNumber::of(static_cast<int>(tabular.year), static_cast<int>(tabular.month));
    for (const HijriMonth& month : months_about(theory, settings, about))
        if (day_number >= month.first_day && day_number < month.first_day + month.days)
            return {day_of_month(month, day_number), {}};
    return refused(outside_words());
}

HijriDayAnswer day_of_hijri(const TheoryPointer& theory, const HijriSettings& settings,
                            const HijriDate& hijri) {
    for (const double part : {hijri.year, hijri.month, hijri.day})
        if (std::floor(part) != part)
            return refused(
                TwinText{"Year, month and day are whole numbers.", "السنة و الشهر و اليوم أرقام صحيحة."});
    if (!hijri_rule_years.holds(hijri.year))
        return refused(outside_words());
    if (!(hijri.month >= 1 && hijri.month <= months_of_year))
        return refused(TwinText{"A year has the months 1 to 12.", "أشهر السنة من 1 إلى 12."});
    const auto number = HijriMonthNumber::of(static_cast<int>(hijri.year), static_cast<int>(hijri.month));
    NoProgress progress;
    const HijriMonth month = hijri_months(theory, settings, number, number, progress)->front();
    if (!(hijri.day >= 1 && hijri.day <= month.days))
        return refused(no_such_day(month));
    return {day_of_month(month, month.first_day + hijri.day - 1), {}};
}

} // namespace halvane
