// SPDX-License-Identifier: MIT
#include "hijri/monthsheet.h"

#include "timetable/clockunits.h"
#include "timetable/moonofday.h"
#include "timetable/skydays.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace halvane {
namespace {

constexpr double noon = 0.5;

/// Sunday is 0; that of the Julian day 0, a Monday, is 1.
int weekday_of(double day_number) {
    constexpr int days = 7;
    return static_cast<int>(std::fmod(day_number + 1, days));
}

/// The phase that falls on a civil date, by the clock of its noon.
std::optional<Phase> phase_on(const MoonPhases& phases, const TimetablePlace& place, double day_number) {
    const double date = day_number - noon;
    const double midnight = date - clock_on(place, date).ahead() / hours_per_day;
    const int moon = static_cast<int>(phases.on(midnight, midnight + 1));
    return moon % 2 == 0 ? std::optional(static_cast<Phase>(moon / 2)) : std::nullopt;
}

std::vector<MonthDay> days_of(const HijriMonth& month, const MoonPhases& phases,
                              const TimetablePlace& place) {
    std::vector<MonthDay> days;
    for (int day = 1; day <= month.days; ++day) {
        const HijriDate date{static_cast<double>(month.number.year()),
                             static_cast<double>(month.number.month()), static_cast<double>(day)};
        const double number = month.first_day + day - 1;
        days.push_back({date, number, weekday_of(number), phase_on(phases, place, number), feasts_of(date)});
    }
    return days;
}

} // namespace

bool MonthDay::is_white_day() const {
    return std::any_of(feasts.begin(), feasts.end(),
                       [](const Feast* feast) { return feast->is_of_each_month(); });
}

MoonOfDay moon_of(Phase phase) {
    return static_cast<MoonOfDay>(2 * static_cast<int>(phase));
}

std::optional<std::vector<MonthSheet>> month_sheets(const TheoryPointer& theory,
                                                    const HijriSettings& settings, HijriMonthNumber first,
                                                    HijriMonthNumber last, const TimetablePlace& place,
                                                    Progress& progress) {
    const std::optional<std::vector<HijriMonth>> months =
        hijri_months(theory, settings, first, last, progress);
    if (!months)
        return std::nullopt;
    Ephemeris ephemeris(theory);
    const double before = months->front().first_day - 2;
    const double after = months->back().first_day + months->back().days + 1;
    const MoonPhases phases(ephemeris, before, after);
    std::vector<MonthSheet> sheets;
    for (const HijriMonth& month : *months)
        sheets.push_back({settings, month, place, days_of(month, phases, place)});
    return sheets;
}

std::optional<MonthSheet> month_sheet(const TheoryPointer& theory, const HijriSettings& settings,
                                      HijriMonthNumber month, const TimetablePlace& place,
                                      Progress& progress) {
    std::optional<std::vector<MonthSheet>> sheets =
        month_sheets(theory, settings, month, month, place, progress);
    if (!sheets)
        return std::nullopt;
    return std::move(sheets->front());
}

} // namespace halvane
