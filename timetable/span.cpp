// SPDX-License-Identifier: MIT
#include "timetable/span.h"

#include "calendar/civildate.h"
#include "calendar/moddateconv.h"
#include "calendar/modjul.h"
#include "calendar/yearlimits.h"

#include <array>
#include <charconv>

namespace halvane {
namespace {

SpanAnswer refused(const std::string& english, const std::string& arabic) {
    return {{}, TwinWords{english, arabic}};
}

SpanAnswer refused_text(std::string_view text, const char* form) {
    return refused("wanted " + std::string(form) + ", found \"" + std::string(text) + "\"",
                   "المطلوب " + std::string(form) + "، و الموجود \"" + std::string(text) + "\"");
}

double day_of(double year, double month, double day) {
    double jd = 0;
    modjul(year, month, day, 0, jd);
    return jd;
}

constexpr int months_of_year = 12;
constexpr double noon_after_midnight = 0.5;

/// The days of Hijri months one after the other.
SpanAnswer hijri_span(SpanKind kind, HijriMonthNumber first, HijriMonthNumber last,
                      const HijriReckoningPointer& hijri) {
    constexpr double middle = 15; // a day that the rule's month of that name has too
    const HijriCalendar months = hijri
                                     ? hijri->months(day_number_of_hijri(first.year(), first.month(), middle),
                                                     day_number_of_hijri(last.year(), last.month(), middle))
                                     : tabular_months(first, last);
    const double last_day = months.first_day_of(last).value() + months.days_of(last).value() - 1;
    return {{kind, months.first_day_of(first).value() - noon_after_midnight, last_day - noon_after_midnight},
            std::nullopt};
}

std::optional<TwinWords> refused_by(double year, const YearRange& range) {
    if (const auto refusal = refused_year(year, range))
        return refusal->text;
    return std::nullopt;
}

SpanAnswer answer(SpanKind kind, double first, double last) {
    return {{kind, first, last}, std::nullopt};
}

bool is_month(double month) {
    return month >= 1 && month <= 12;
}

SpanAnswer no_month(double month) {
    const std::string number = std::to_string(static_cast<int>(month));
    return refused("there is no month " + number + "; a year has the months 1 to 12",
                   "لا يوجد شهر " + number + "، فأشهر السنة من 1 إلى 12");
}

/// Whole numbers apart from each other by "-"; nothing for any other text. A minus sign may come before the
/// first.
template <std::size_t count>
std::optional<std::array<double, count>> numbers_of(std::string_view text) {
    std::array<double, count> numbers{};
    for (std::size_t i = 0; i < count; ++i) {
        if (i > 0) {
            if (!text.starts_with('-'))
                return std::nullopt;
            text.remove_prefix(1);
        }
        const bool may_be_negative = i == 0;
        if (!may_be_negative && text.starts_with('-'))
            return std::nullopt;
        int number = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        if (error != std::errc())
            return std::nullopt;
        text.remove_prefix(static_cast<std::size_t>(end - text.data()));
        numbers.at(i) = number;
    }
    return text.empty() ? std::optional(numbers) : std::nullopt;
}

bool is_date(const DateNumbers& date) {
    return is_month(date.month) && date.day >= 1 &&
           civil_date(day_of(date.year, date.month, date.day)) == date;
}

} // namespace

SpanAnswer month_span(double year, double month) {
    if (auto words = refused_by(year, theory_years))
        return {{}, std::move(words)};
    if (!is_month(month))
        return no_month(month);
    const double next = month == 12 ? day_of(year + 1, 1, 1) : day_of(year, month + 1, 1);
    return answer(SpanKind::month, day_of(year, month, 1), next - 1);
}

SpanAnswer year_span(double year) {
    if (auto words = refused_by(year, theory_years))
        return {{}, std::move(words)};
    return answer(SpanKind::year, day_of(year, 1, 1), day_of(year, 12, 31));
}

SpanAnswer hijri_month_span(double year, double month, const HijriReckoningPointer& hijri) {
    if (auto words = refused_by(year, hijri_timetable_years))
        return {{}, std::move(words)};
    if (!is_month(month))
        return no_month(month);
    const auto number = HijriMonthNumber::of(static_cast<int>(year), static_cast<int>(month));
    return hijri_span(SpanKind::hijri_month, number, number, hijri);
}

SpanAnswer hijri_year_span(double year, const HijriReckoningPointer& hijri) {
    if (auto words = refused_by(year, hijri_timetable_years))
        return {{}, std::move(words)};
    const int number = static_cast<int>(year);
    return hijri_span(SpanKind::hijri_year, HijriMonthNumber::of(number, 1),
                      HijriMonthNumber::of(number, months_of_year), hijri);
}

SpanAnswer dates_span(const DateNumbers& from, const DateNumbers& to) {
    for (const DateNumbers& date : {from, to}) {
        if (auto words = refused_by(date.year, theory_years))
            return {{}, std::move(words)};
        if (!is_date(date))
            return refused("the calendar has no such date", "لا يوجد هذا التاريخ في التقويم");
    }
    const double first = day_of(from.year, from.month, from.day);
    const double last = day_of(to.year, to.month, to.day);
    if (last < first)
        return refused("the last date comes before the first", "التاريخ الأخير قبل الأول");
    if (last - first + 1 > most_days)
        return refused("a timetable has at most " + std::to_string(most_days) + " days",
                       "لا يزيد التقويم على " + std::to_string(most_days) + " يوم");
    return answer(SpanKind::dates, first, last);
}

SpanAnswer month_span(std::string_view text) {
    const auto numbers = numbers_of<2>(text);
    return numbers ? month_span((*numbers)[0], (*numbers)[1]) : refused_text(text, "YYYY-MM");
}

SpanAnswer year_span(std::string_view text) {
    const auto numbers = numbers_of<1>(text);
    return numbers ? year_span((*numbers)[0]) : refused_text(text, "YYYY");
}

SpanAnswer hijri_month_span(std::string_view text, const HijriReckoningPointer& hijri) {
    const auto numbers = numbers_of<2>(text);
    return numbers ? hijri_month_span((*numbers)[0], (*numbers)[1], hijri) : refused_text(text, "YYYY-MM");
}

SpanAnswer hijri_year_span(std::string_view text, const HijriReckoningPointer& hijri) {
    const auto numbers = numbers_of<1>(text);
    return numbers ? hijri_year_span((*numbers)[0], hijri) : refused_text(text, "YYYY");
}

SpanAnswer dates_span(std::string_view from, std::string_view to) {
    const auto first = numbers_of<3>(from);
    if (!first)
        return refused_text(from, "YYYY-MM-DD");
    const auto last = numbers_of<3>(to);
    if (!last)
        return refused_text(to, "YYYY-MM-DD");
    return dates_span(DateNumbers{(*first)[0], (*first)[1], (*first)[2]},
                      DateNumbers{(*last)[0], (*last)[1], (*last)[2]});
}

} // namespace halvane
