// SPDX-License-Identifier: MIT
#include "calendar/hijriconversion.h"

#include "calendar/moddateconv.h"
#include "calendar/modday.h"
#include "calendar/modjul.h"
#include "calendar/platformdate.h"
#include "calendar/yearlimits.h"

#include <cmath>

namespace halvane {

namespace {

constexpr std::size_t may = 4;
constexpr const char* may_in_arabic = "أيار";

MonthNames civil_months(Language language) {
    MonthNames names;
    for (std::size_t i = 0; i < names.size(); ++i)
        names[i] = civil_month_name(static_cast<int>(i) + 1, language);
    if (language == Language::arabic)
        names[may] = may_in_arabic;
    return names;
}

MonthNames hijri_months(Language language) {
    MonthNames names;
    for (std::size_t i = 0; i < names.size(); ++i)
        names[i] = hijri_month_name(static_cast<double>(i) + 1, language);
    return names;
}

std::string name_of(const MonthNames& names, double month) {
    return month >= 1 && month <= 12 ? names[static_cast<std::size_t>(month) - 1] : std::string();
}

ConversionAnswer civil_date_of(double year, double month, double day, Language language) {
    ConversionAnswer answer;
    if (!(year > 0)) {
        answer.refused = RefusedDate::year_not_positive;
        return answer;
    }
    if (year > converted_hijri_years.last) {
        answer.refused = RefusedDate::year_too_large;
        return answer;
    }
    const double noon = day_number_of_hijri(year, month, day);
    modjuc(noon, answer.year, answer.month, answer.day);
    answer.day = std::floor(answer.day);
    answer.month_name = name_of(civil_months(language), answer.month);
    answer.weekday = weekday_name(noon, language);
    return answer;
}

RefusedDate refused_civil_date(double year, double month, double day) {
    const double date = platform_day_count(year, month, day);
    if (year > converted_civil_years.last)
        return RefusedDate::year_too_large;
    if (date < platform_day_count(622, 7, 16) || year < 622)
        return RefusedDate::before_first_hijri;
    if (date > platform_day_count(1582, 10, 4) && date < platform_day_count(1582, 10, 15))
        return RefusedDate::in_calendar_gap;
    return RefusedDate::none;
}

ConversionAnswer hijri_date_of(double year, double month, double day, Language language) {
    ConversionAnswer answer;
    answer.refused = refused_civil_date(year, month, day);
    if (answer.refused != RefusedDate::none)
        return answer;
    double noon = 0;
    modjul(year, month, day, 12, noon);
    noon = std::floor(noon);
    const HijriDate hijri = hijri_of_day_number(noon);
    answer.year = hijri.year;
    answer.month = hijri.month;
    answer.day = hijri.day;
    answer.month_name = name_of(hijri_months(language), hijri.month);
    answer.weekday = weekday_name(noon, language);
    return answer;
}

} // namespace

MonthNames conversion_months(ConversionDirection direction, Language language) {
    return direction == ConversionDirection::hijri_to_civil ? hijri_months(language) : civil_months(language);
}

double conversion_month_number(ConversionDirection direction, std::string_view name) {
    for (const Language language : languages) {
        const MonthNames names = conversion_months(direction, language);
        for (std::size_t i = 0; i < names.size(); ++i)
            if (names[i] == name)
                return static_cast<double>(i) + 1;
    }
    return 0;
}

ConversionAnswer convert_date(ConversionDirection direction, double year, double month, double day,
                              Language language) {
    return direction == ConversionDirection::hijri_to_civil ? civil_date_of(year, month, day, language)
                                                            : hijri_date_of(year, month, day, language);
}

} // namespace halvane
