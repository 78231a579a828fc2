// SPDX-License-Identifier: MIT
#include "calendar/moddateconv.h"

#include "base/twintext.h"
#include "calendar/modjul.h"

#include <array>
#include <cmath>

namespace halvane {
namespace {

constexpr std::array<TwinText, 12> hijri_months{{{"Muharram", "محرم"},
                                                 {"Safar", "صفر"},
                                                 {"Rabeea' Awwal", "ربيع أول"},
                                                 {"Rabeea' Thani", "ربيع ثاني"},
                                                 {"Jamada Aula", "جمادى الأولى"},
                                                 {"Jamada Aakherah", "جمادي الآخرة"},
                                                 {"Rajab", "رجب"},
                                                 {"Sha'ban", "شعبان"},
                                                 {"Ramadan", "رمضان"},
                                                 {"Shawwal", "شوال"},
                                                 {"Thul Kea'deh", "ذو القعدة"},
                                                 {"Thul Hejjah", "ذو الحجة"}}};

} // namespace

HijriDate hijri_of_day_number(double day_number) {
    using std::floor;
    double l = day_number - 1948440 + 10632;
    const double n = floor((l - 1) / 10631);
    l = l - 10631 * n + 354;
    const double j =
        floor((10985 - l) / 5316) * floor(50 * l / 17719) + floor(l / 5670) * floor(43 * l / 15238);
    l = l - floor((30 - j) / 15) * floor(17719 * j / 50) - floor(j / 16) * floor(15238 * j / 43) + 29;
    HijriDate date;
    date.month = floor(24 * l / 709);
    date.day = l - floor(709 * date.month / 24);
    date.year = floor(30 * n + j - 30);
    return date;
}

double day_number_of_hijri(double year, double month, double day) {
    using std::floor;
    return floor((11 * year + 3) / 30) + floor(354 * year) + floor(30 * month) - floor((month - 1) / 2) +
           day + 1948440 - 385;
}

HijriDate hijri_of_civil(double year, double month, double day) {
    double jd = 0;
    modjul(year, month, day, 12, jd);
    return hijri_of_day_number(std::floor(jd));
}

std::string hijri_month_name(double month, Language language) {
    if (!(month >= 1 && month <= 12))
        return {};
    return hijri_months[static_cast<std::size_t>(month) - 1].in(language);
}

void moddateconv(double day, double month, double year, std::string_view direction, char letter,
                 double& hijri_day, std::string& hijri_month, double& hijri_year) {
    if (direction != "GtoH")
        return;
    const HijriDate date = hijri_of_civil(year, month, day);
    hijri_day = date.day;
    hijri_month = hijri_month_name(date.month, letter == 'A' ? Language::arabic : Language::english);
    hijri_year = date.year;
}

} // namespace halvane
