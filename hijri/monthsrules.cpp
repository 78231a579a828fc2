// SPDX-License-Identifier: MIT
#include "hijri/monthsrules.h"

#include "base/numberformat.h"
#include "calendar/civildate.h"
#include "calendar/modday.h"
#include "crescent/measurewords.h"
#include "hijri/hijritexts.h"
#include "timetable/placewords.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace halvane {
namespace {

TwinWords difference_words(int days) {
    if (days == 0)
        return TwinText{"the same day", "اليوم نفسه"};
    const int size = std::abs(days);
    if (size == 1)
        return days > 0 ? TwinText{"1 day later", "بعده بيوم"} : TwinText{"1 day earlier", "قبله بيوم"};
    const TwinWords count = plain_words(std::to_string(size));
    return days > 0 ? TwinWords(count.english + " days later", "بعده بعدد أيام: " + count.arabic)
                    : TwinWords(count.english + " days earlier", "قبله بعدد أيام: " + count.arabic);
}

std::string on_weekday(double day_number, const std::string& date, Language language) {
    return weekday_name(day_number, language) + (language == Language::english ? ", " : "، ") + date;
}

MonthRow::Part part_of(const HijriMonth& month, Language language) {
    return {long_date(month.first_day, language), std::to_string(month.days), margin_text(month),
            notes_text(month, language), month.may_differ()};
}

} // namespace

AskedParts asked_of(const HijriRule& rule, const HijriRule* other, SeenBefore before) {
    AskedParts asked;
    for (const HijriRule* one : {&rule, other}) {
        if (one == nullptr)
            continue;
        asked.criterion |= asks_criterion(*one);
        asked.region |= asks_region(*one);
        asked.place |= asks_place(*one, before) && one->key != std::string_view("seen-here");
        asked.is_listed |= one->key == std::string_view("seen-at");
    }
    return asked;
}

TwinWords told_words(const HijriRule& rule, const CataloguedCriterion& criterion) {
    return TwinWords(rule.told) + TwinText{"\nSource: ", "\nالمصدر: "} +
           plain_words(asks_criterion(rule) ? criterion.source : rule.source);
}

std::vector<TwinText> classes_to_see(const CataloguedCriterion& criterion) {
    std::vector<TwinText> classes;
    for (const CriterionClass& band : criterion.bands().subspan(1))
        classes.push_back(band.text);
    return classes;
}

std::optional<TwinWords> refused_hijri_year(double year) {
    if (std::floor(year) != year)
        return TwinText{"A year is a whole number.", "السنة رقم صحيح."};
    if (hijri_rule_years.holds(year))
        return std::nullopt;
    const auto from = std::to_string(static_cast<int>(hijri_rule_years.first));
    const auto to = std::to_string(static_cast<int>(hijri_rule_years.last));
    return TwinWords("The Hijri years go from " + from + " to " + to + ".",
                     "السنوات الهجرية من " + from + " إلى " + to + ".");
}

double civil_year_of(double hijri_year) {
    return civil_date(day_number_of_hijri(hijri_year, 1, 1)).year;
}

std::string long_date(double day_number, Language language) {
    return on_weekday(day_number, date_words(civil_date(day_number)).in(language), language);
}

std::string long_hijri_date(const HijriDay& day, Language language) {
    const std::string date = plain_number(day.hijri.day) + " " + month_words(day.month.number).in(language);
    return on_weekday(day.day_number, date, language);
}

std::vector<MonthRow> rows_of(const HijriYears& years, Language language) {
    constexpr std::size_t months_of_a_year = 12;
    std::vector<MonthRow> rows;
    for (std::size_t month = 0; month < std::min(months_of_a_year, years.months()); ++month) {
        MonthRow row;
        row.month = hijri_month_name(years.rules.front().months[month].number.month(), language);
        for (const RuleMonths& rule : years.rules)
            row.parts.push_back(part_of(rule.months[month], language));
        if (years.rules.size() > 1)
            row.difference = difference_words(years.difference(1, month)).in(language);
        rows.push_back(std::move(row));
    }
    return rows;
}

TwinWords summary_of(const HijriYears& years) {
    const RuleMonths& rule = years.rules.front();
    int days = 0, ties = 0, others = 0;
    for (std::size_t month = 0; month < years.months(); ++month) {
        days += rule.months[month].days;
        ties += rule.months[month].may_differ() ? 1 : 0;
        others += years.rules.size() > 1 && years.difference(1, month) != 0 ? 1 : 0;
    }
    TwinWords words = plain_words(std::to_string(years.first)) + TwinText{", ", "، "} +
                      name_of(rule.settings) + TwinText{": days: ", ": عدد الأيام "} +
                      plain_words(std::to_string(days)) +
                      TwinText{". Months that may differ by a day: ", ". أشهر قد تختلف بيوم: "} +
                      plain_words(std::to_string(ties));
    if (years.rules.size() > 1)
        words = words + TwinText{". Months on another day: ", ". أشهر في يوم آخر: "} +
                plain_words(std::to_string(others));
    return words + plain_words(".");
}

} // namespace halvane
