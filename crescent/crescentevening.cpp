// SPDX-License-Identifier: MIT
#include "crescent/crescentevening.h"

#include "calendar/civildate.h"
#include "crescent/circumstances.h"
#include "crescent/conjunction.h"
#include "events/phase.h"
#include "events/riseset.h"

namespace halvane {
namespace {

constexpr double hours_per_day = 24;
constexpr double minutes_per_day = 1440;

/// The rise or the set of a body in the day that begins at `start`; Julian day, UT1                [d]
std::optional<double> event_after(Ephemeris& ephemeris, Target target, const Observer& observer,
                                  CrescentKind kind, double start) {
    const RiseSet events = find_rise_set(ephemeris, target, Instant::of_ut1(start), observer, Horizon{});
    const double* hours = hours_of(kind == CrescentKind::new_crescent ? events.set : events.rise);
    if (hours == nullptr)
        return std::nullopt;
    return start + *hours / hours_per_day;
}

double best_time_of(const CrescentEvening& evening) {
    const bool is_new = evening.kind == CrescentKind::new_crescent;
    const double lag = evening.lag() / minutes_per_day;
    if (lag <= 0)
        return is_new ? evening.sun_event : evening.moon_event;
    return best_time(is_new, evening.sun_event, lag);
}

} // namespace

double CrescentEvening::lag() const {
    const double days = moon_event - sun_event;
    return (kind == CrescentKind::new_crescent ? days : -days) * minutes_per_day;
}

double CrescentEvening::age(double universal) const {
    const double days = universal - conjunction;
    return (kind == CrescentKind::new_crescent ? days : -days) * hours_per_day;
}

double geocentric_conjunction(Ephemeris& ephemeris, double universal) {
    const double estimate = phase_estimate(Phase::new_moon, nearest_lunation(civil_date(universal)));
    return Instant::of_dynamical(refined_phase(ephemeris, Phase::new_moon, estimate)).ut1();
}

CrescentSky crescent_sky(Ephemeris& ephemeris, const Observer& observer, double universal) {
    const Instant instant = Instant::of_ut1(universal);
    const SunPlace sun = sun_high(ephemeris, instant, observer);
    const MoonPlace moon = moon_medium(ephemeris, instant, observer);
    CrescentSky sky;
    sky.universal = universal;
    sky.geocentric = crescent_quantities(
        ephemeris, instant, observer, {moon.right_ascension, moon.declination},
        {sun.right_ascension, sun.declination}, moon.semidiameter, sun.radius, moon.distance);
    sky.topocentric = topocentric_quantities(ephemeris, instant, observer, moon, sun);
    sky.parallax = moon.parallax;
    return sky;
}

std::optional<CrescentEvening> crescent_evening(Ephemeris& ephemeris, const Observer& observer,
                                                CrescentKind kind, double day, double conjunction) {
    constexpr double degrees_per_day = 360;
    const double midnight = day - observer.longitude / degrees_per_day;
    const auto sun_event = event_after(ephemeris, Target::sun, observer, kind, midnight);
    if (!sun_event)
        return std::nullopt;
    const auto moon_event = event_after(ephemeris, Target::moon, observer, kind, *sun_event - 0.5);
    if (!moon_event)
        return std::nullopt;
    CrescentEvening evening;
    evening.kind = kind;
    evening.day = day;
    evening.conjunction = conjunction;
    evening.sun_event = *sun_event;
    evening.moon_event = *moon_event;
    evening.at_sun_event = crescent_sky(ephemeris, observer, evening.sun_event);
    evening.at_best_time = crescent_sky(ephemeris, observer, best_time_of(evening));
    return evening;
}

} // namespace halvane
