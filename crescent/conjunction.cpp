// SPDX-License-Identifier: MIT
#include "crescent/conjunction.h"

#include "base/failure.h"
#include "base/numberformat.h"
#include "calendar/civildate.h"
#include "calendar/moddateconv.h"
#include "calendar/moddeltat.h"
#include "calendar/modjul.h"
#include "calendar/modsummer.h"
#include "ephemeris/modgeneral.h"
#include "events/phase.h"
#include "settings/enginesettings.h"

namespace halvane {

DateNumbers approximate_date(const CrescentSettings& settings) {
    if (settings.gregorian)
        return {numeric_prefix(settings.year), numeric_prefix(settings.month), numeric_prefix(settings.day)};
    constexpr double days_to_its_end = 30;
    double noon = day_number_of_hijri(numeric_prefix(settings.hijri_year), settings.hijri_month + 1, 1);
    if (!settings.new_crescent)
        noon += days_to_its_end;
    DateNumbers date;
    modjuc(noon, date.year, date.month, date.day);
    return date;
}

double nearest_lunation(const DateNumbers& date) {
    const double year = date.year + ((date.month - 1) * 30.4 + date.day) / 365.25;
    return round_half_even((year - 2000) * 12.3685);
}

namespace {

/// Summer hours of a date by month and day alone, in a leap year.
int summer_hours_on(const Preferences& preferences, const DateNumbers& date) {
    constexpr double any_leap_year = 2004;
    return in_summer_time(preferences, any_leap_year, date.month, date.day) ? 1 : 0;
}

Conjunction conjunction_near(Ephemeris& ephemeris, const DateNumbers& date, const CrescentRecords& run) {
    const double estimate = phase_estimate(Phase::new_moon, nearest_lunation(date));
    const Observer observer = observer_of(run.location);
    Conjunction conjunction;
    conjunction.dynamical =
        refined_phase(ephemeris, Phase::new_moon, estimate, run.settings.geocentric ? nullptr : &observer);
    double delta_t = 0;
    moddeltat(conjunction.dynamical, delta_t);
    const double universal = conjunction.dynamical - delta_t;
    conjunction.summer_hours = summer_hours_on(run.preferences, civil_date(universal));
    conjunction.local = universal + conjunction.summer_hours / 24.0 + run.location.zone / 24;
    return conjunction;
}

} // namespace

Conjunction find_conjunction(Ephemeris& ephemeris, const CrescentRecords& run) {
    const DateNumbers date = approximate_date(run.settings);
    return about_place(run.location.name, [&] {
        return about_day(date, [&] { return conjunction_near(ephemeris, date, run); });
    });
}

std::array<DateNumbers, 5> candidate_dates(const Conjunction& conjunction) {
    constexpr std::array<double, 5> days{0, 1, 2, -1, -2};
    std::array<DateNumbers, 5> dates;
    for (std::size_t i = 0; i < days.size(); ++i)
        dates[i] = civil_date(conjunction.local + days[i]);
    return dates;
}

} // namespace halvane
