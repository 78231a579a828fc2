// SPDX-License-Identifier: MIT
#include "zones/summertime.h"

#include "calendar/civildate.h"
#include "calendar/modjul.h"
#include "calendar/zonetext.h"
#include "zones/zonelist.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace halvane {
namespace {

constexpr TwinText title{"Summer Time", "التوقيت الصيفي"};
constexpr int one_hour = 3600; // [s]

/// 0 h of the year's January 1, as a Julian day.
double start_of(int year) {
    double jd = 0;
    modjul(year, 1, 1, 0, jd);
    return jd;
}

struct Words {
    std::string zone;
    std::string standard;
    std::string year;
};

Refusal other_clock(const Words& words, int offset) {
    const std::string found = zone_text(static_cast<double>(offset) / one_hour);
    return {title,
            {"In " + words.year + " the clock of " + words.zone + " shows " + found +
                 " on some days. The preferences can only tell of " + words.standard +
                 ", the location's time zone, and of one hour ahead of it.",
             "في سنة " + words.year + " تكون ساعة " + words.zone + " في بعض الأيام " + found +
                 ". لا تتسع الخيارات إلا للمنطقة الزمنية للموقع " + words.standard +
                 " و لساعة واحدة قبلها."}};
}

Refusal ahead_all_year(const Words& words) {
    return {
        title,
        {"In " + words.year + " the clock of " + words.zone + " is one hour ahead of " + words.standard +
             ", the location's time zone, on every day. Please look at the time zone in the Location menu.",
         "في سنة " + words.year + " تتقدم ساعة " + words.zone + " ساعة واحدة على المنطقة الزمنية للموقع " +
             words.standard + " في كل الأيام. يرجى مراجعة المنطقة الزمنية في قائمة الموقع."}};
}

Refusal several_spans(const Words& words) {
    return {title,
            {"In " + words.year + " the clock of " + words.zone +
                 " has summer time more than once. The preferences can keep one span only.",
             "في سنة " + words.year + " يتكرر التوقيت الصيفي في " + words.zone +
                 ". لا تتسع الخيارات إلا لفترة واحدة."}};
}

Refusal no_zone(const std::string& place) {
    return {
        title,
        {"The time zone of \"" + place +
             "\" is not known: no town of the delivered list has this name and stands there. Please set the "
             "days "
             "of the summer time yourself.",
         "المنطقة الزمنية للموقع \"" + place +
             "\" غير معروفة: ليس في القائمة الأصلية مدينة بهذا الاسم في هذا المكان. يرجى تحديد أيام التوقيت "
             "الصيفي يدويا."}};
}

} // namespace

SummerTime summer_time_of(const TimeZone& zone, double standard_hours, int year) {
    const int standard = static_cast<int>(std::lround(standard_hours * one_hour));
    const Words words{zone.name(), zone_text(standard_hours), std::to_string(year)};
    const double start = start_of(year);
    const int days = static_cast<int>(start_of(year + 1) - start);
    std::vector<bool> summer;
    for (int day = 0; day < days; ++day) {
        const int offset = zone.offset_on(start + day);
        if (offset != standard && offset != standard + one_hour)
            return other_clock(words, offset);
        summer.push_back(offset != standard);
    }
    // Within the year as a ring, for the preferences tell days of every year.
    std::vector<int> firsts;
    std::vector<int> lasts;
    for (int day = 0; day < days; ++day) {
        if (!summer[static_cast<std::size_t>(day)])
            continue;
        if (!summer[static_cast<std::size_t>((day + days - 1) % days)])
            firsts.push_back(day);
        if (!summer[static_cast<std::size_t>((day + 1) % days)])
            lasts.push_back(day);
    }
    if (firsts.size() > 1)
        return several_spans(words);
    if (firsts.empty())
        return summer.front() ? SummerTime(ahead_all_year(words)) : NoSummerTime{};
    return SummerSpan{civil_date(start + firsts.front()), civil_date(start + lasts.front())};
}

double least_hours_of(const TimeZone& zone, int year) {
    const double end = start_of(year + 1);
    int least = zone.offset_on(start_of(year));
    for (double day = start_of(year) + 1; day < end; ++day)
        least = std::min(least, zone.offset_on(day));
    return static_cast<double>(least) / one_hour;
}

SummerTime summer_time_at(const Location& location, int year) {
    const std::optional<std::string> zone = read_zone_list().zone_of(location);
    if (!zone)
        return no_zone(location.name);
    return summer_time_of(TimeZone(*zone), location.zone, year);
}

} // namespace halvane
