// SPDX-License-Identifier: MIT
#include "hijri/feasts.h"

#include <algorithm>
#include <array>

namespace halvane {
namespace {

constexpr TwinText odd_night{"Odd night of Ramadan", "ليلة وتر من رمضان"};

constexpr std::array<Feast, 18> table{{
    {1, 1, 1, "new_year", {"Hijri New Year", "رأس السنة الهجرية"}},
    {1, 9, 1, "tasua", {"Tasu'a", "تاسوعاء"}},
    {1, 10, 1, "ashura", {"Ashura", "عاشوراء"}},
    {3, 12, 1, "mawlid", {"Mawlid", "المولد النبوي"}},
    {7, 27, 1, "isra_miraj", {"Isra' and Mi'raj", "الإسراء و المعراج"}, true},
    {8, 15, 1, "mid_shaban", {"Mid-Sha'ban", "النصف من شعبان"}, true},
    {9, 1, 1, "ramadan", {"First of Ramadan", "أول رمضان"}},
    {9, 21, 1, "odd_night_21", odd_night, true},
    {9, 23, 1, "odd_night_23", odd_night, true},
    {9, 25, 1, "odd_night_25", odd_night, true},
    {9, 27, 1, "laylat_al_qadr", {"Laylat al-Qadr", "ليلة القدر"}, true},
    {9, 29, 1, "odd_night_29", odd_night, true},
    {10, 1, 3, "eid_al_fitr", {"Eid al-Fitr", "عيد الفطر"}},
    {12, 8, 1, "tarwiyah", {"Day of Tarwiyah", "يوم التروية"}},
    {12, 9, 1, "arafah", {"Day of Arafah", "يوم عرفة"}},
    {12, 10, 1, "eid_al_adha", {"Eid al-Adha", "عيد الأضحى"}},
    {12, 11, 3, "tashriq", {"Days of Tashriq", "أيام التشريق"}},
    {0, 13, 3, "white_days", {"White days", "الأيام البيض"}},
}};

/// The 13th of Thul Hejjah is a day of Tashriq, on which nobody fasts.
bool is_white_day(const Feast& feast, const HijriDate& date) {
    constexpr int pilgrimage = 12;
    return feast.is_of_each_month() && !(date.month == pilgrimage && date.day == feast.day);
}

bool holds(const Feast& feast, const HijriDate& date) {
    return (feast.month == date.month || is_white_day(feast, date)) && date.day >= feast.day &&
           date.day < feast.day + feast.days;
}

} // namespace

std::span<const Feast> feasts() {
    return table;
}

std::vector<const Feast*> feasts_of(const HijriDate& date) {
    std::vector<const Feast*> found;
    for (const Feast& feast : table)
        if (holds(feast, date))
            found.push_back(&feast);
    return found;
}

TwinWords words_of(const Feast& feast) {
    if (!feast.of_the_night)
        return feast.name;
    return {std::string(feast.name.english) + " (night before)",
            std::string(feast.name.arabic) + " (الليلة السابقة)"};
}

std::vector<KeptFeast> feasts_of_month(HijriMonthNumber month, int days) {
    std::vector<KeptFeast> kept;
    for (int day = 1; day <= days; ++day) {
        const HijriDate date{static_cast<double>(month.year()), static_cast<double>(month.month()),
                             static_cast<double>(day)};
        for (const Feast* const feast : feasts_of(date)) {
            const auto known = std::find_if(kept.begin(), kept.end(),
                                            [feast](const KeptFeast& other) { return other.feast == feast; });
            if (known == kept.end())
                kept.push_back({feast, day, 1});
            else
                ++known->days;
        }
    }
    return kept;
}

} // namespace halvane
