// SPDX-License-Identifier: MIT
#include "crescent/daywords.h"

#include "base/numberformat.h"
#include "calendar/civildate.h"
#include "calendar/modctim.h"
#include "calendar/modday.h"
#include "crescent/maptexts.h"

#include <cmath>

namespace halvane {

TwinWords day_words(double jd) {
    const double noon = std::floor(jd + 0.5);
    const auto words = [&](Language language) {
        return weekday_name(noon, language) + " " + map_date_text(noon, language);
    };
    return {words(Language::english), words(Language::arabic)};
}

std::string clock_words(double jd) {
    constexpr int to_the_minute = 1;
    return modctim(to_the_minute, hours_of_day(jd));
}

TwinWords month_words(const HijriDate& date) {
    const std::string year = " " + plain_number(date.year);
    return {hijri_month_name(date.month, Language::english) + year + " AH",
            hijri_month_name(date.month, Language::arabic) + year + " هـ"};
}

} // namespace halvane
