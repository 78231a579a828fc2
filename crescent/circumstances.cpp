// SPDX-License-Identifier: MIT
#include "crescent/circumstances.h"

#include "base/failure.h"
#include "base/numberformat.h"
#include "calendar/civildate.h"
#include "calendar/modjul.h"
#include "crescent/criteria.h"
#include "settings/enginesettings.h"

#include <cmath>

namespace halvane {

CrescentChoice chosen(const CrescentSettings& settings) {
    CrescentChoice choice;
    choice.new_crescent = settings.new_crescent;
    choice.geocentric = settings.geocentric;
    if (settings.one_day)
        choice.days = 1;
    if (settings.two_days)
        choice.days = 2;
    if (settings.at_moon)
        choice.time = ObservationTime::moon;
    if (settings.at_best_time)
        choice.time = ObservationTime::best;
    if (settings.at_user_time)
        choice.time = ObservationTime::user;
    choice.user_hour = numeric_prefix(settings.user_hour);
    choice.user_minute = numeric_prefix(settings.user_minute);
    return choice;
}

double chosen_day(const CrescentChoice& choice, const Conjunction& conjunction) {
    const DateNumbers date = civil_date(conjunction.local);
    double day = 0;
    modjul(date.year, date.month, date.day, 0, day);
    return day + (choice.new_crescent ? choice.days : -choice.days);
}

HijriDate hijri_looked_for(double day, bool new_crescent) {
    constexpr double one_week = 7;
    return hijri_of_day_number(std::floor(day + (new_crescent ? one_week : -one_week)));
}

double best_time(bool new_crescent, double sun_event, double lag) {
    const double part = 4.0 / 9 * lag;
    return new_crescent ? sun_event + part : sun_event - part;
}

namespace {

void take_events(Ephemeris& ephemeris, const CrescentRecords& run, double day, double clock_ahead,
                 DayEvents& events) {
    const Instant midnight = Instant::of_ut1(day - clock_ahead);
    const Observer observer = observer_of(run.location);
    const Horizon horizon = horizon_of(run.preferences, run.location);
    take_sun_events(ephemeris, midnight, observer, horizon, events);
    take_moon_events(ephemeris, midnight, observer, horizon, events);
}

double chosen_hours(const CrescentChoice& choice, double sun_event, double moon_event, double best) {
    switch (choice.time) {
    case ObservationTime::moon:
        return moon_event;
    case ObservationTime::best:
        return best;
    case ObservationTime::user:
        return choice.user_hour + choice.user_minute / 60;
    case ObservationTime::sun:
        break;
    }
    return sun_event;
}

CriterionValues criterion_at(Ephemeris& ephemeris, const Observer& observer, double universal) {
    const Instant instant = Instant::of_ut1(universal);
    const MoonPlace moon = moon_medium(ephemeris, instant, observer);
    const CrescentQuantities q =
        topocentric_quantities(ephemeris, instant, observer, moon, sun_high(ephemeris, instant, observer));
    CriterionValues values;
    values.arcv = q.relative_altitude();
    values.width = q.width_minutes();
    values.value = row_of(report_criterion).report.value(q);
    return values;
}

void fill_quantities(Ephemeris& ephemeris, const Observer& observer, Circumstances& c) {
    const Instant instant = Instant::of_ut1(c.universal);
    c.sun = sun_high(ephemeris, instant, observer);
    c.moon = moon_medium(ephemeris, instant, observer);
    c.quantities =
        c.choice.geocentric
            ? crescent_quantities(ephemeris, instant, observer, {c.moon.right_ascension, c.moon.declination},
                                  {c.sun.right_ascension, c.sun.declination}, c.moon.semidiameter,
                                  c.sun.radius, c.moon.distance)
            : topocentric_quantities(ephemeris, instant, observer, c.moon, c.sun);
    c.delta_t = instant.delta_t() * 86400;
}

} // namespace

std::optional<Circumstances> crescent_circumstances(Ephemeris& ephemeris, const CrescentRecords& run,
                                                    const Conjunction& conjunction, DayEvents& events) {
    Circumstances c;
    c.choice = chosen(run.settings);
    c.summer_hours = conjunction.summer_hours;
    c.conjunction = conjunction.local;
    const bool is_new = c.choice.new_crescent;

    c.day = chosen_day(c.choice, conjunction);
    const double clock_ahead = (run.location.zone + c.summer_hours) / 24;
    about_place(run.location.name,
                [&] { about_day(c.day, [&] { take_events(ephemeris, run, c.day, clock_ahead, events); }); });
    const double* sun_event = hours_of(is_new ? events.sunset : events.sunrise);
    const double* moon_event = hours_of(is_new ? events.moonset : events.moonrise);
    if (sun_event == nullptr || moon_event == nullptr)
        return std::nullopt;

    c.sun_event = *sun_event;
    c.moon_event = *moon_event;
    c.lag = is_new ? c.moon_event - c.sun_event : c.sun_event - c.moon_event;
    double best = best_time(is_new, c.sun_event, c.lag);
    // With Best Time chosen there is none behind the lag: sunset stands for a new crescent, moonrise for an
    // old one.
    if (c.choice.time == ObservationTime::best && c.lag <= 0)
        best = is_new ? c.sun_event : c.moon_event;
    c.calculation = c.day + chosen_hours(c.choice, c.sun_event, c.moon_event, best) / 24;
    c.moon_age = c.calculation - c.conjunction;
    c.universal = c.calculation - clock_ahead;
    const Observer observer = observer_of(run.location);
    fill_quantities(ephemeris, observer, c);
    c.criterion = criterion_at(ephemeris, observer, c.day + best / 24 - clock_ahead);
    c.hijri = hijri_looked_for(c.day, is_new);
    return c;
}

} // namespace halvane
