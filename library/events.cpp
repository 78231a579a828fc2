// SPDX-License-Identifier: MIT
#include "halvane/events.h"

#include "calendar/shownclock.h"
#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/moon.h"
#include "ephemeris/sun.h"
#include "events/bracketedroot.h"
#include "events/phase.h"
#include "events/riseset.h"
#include "events/suntransit.h"
#include "library/convert.h"
#include "library/guarded.h"
#include "library/parts.h"
#include "prayer/moonday.h"

#include <cmath>

namespace halvane::v1 {
namespace {

constexpr double hours_per_day = 24;

/// A civil date on a place's clock, as the searches take it.
struct SearchedDay {
    SearchedDay(const Date& date, const Observer& place, const Clock& clock, const Horizon& air)
        : jd(checked_julian_day(date)), ahead(clock.hours_ahead(date)), observer(engine_observer(place)),
          horizon(engine_horizon(air, place)),
          midnight(halvane::Instant::of_ut1(jd - ahead / hours_per_day)) {}

    double jd;    ///< 0 h of the date                                                          [d]
    double ahead; ///< of Universal Time                                                        [h]
    halvane::Observer observer;
    halvane::Horizon horizon;
    halvane::Instant midnight;
};

/// The Sun's transit; "Down" where it is not above the horizon then.
ClockTime sun_transit(Ephemeris& ephemeris, const SearchedDay& day, double horizon_altitude) {
    const double noon = 12;
    const double meridian_minutes = (day.ahead * 15 - day.observer.longitude) * 4;
    const SunTransit transit = find_sun_transit(ephemeris, day.jd, {day.ahead, noon, meridian_minutes});
    const double altitude = altitude_of(ephemeris, transit.instant, day.observer, transit.sun.right_ascension,
                                        transit.sun.declination);
    if (altitude <= horizon_altitude)
        return {not_a_number, Missing::down};
    return {transit.hours, Missing::no};
}

double altitude_at(Ephemeris& ephemeris, Body body, const halvane::Observer& observer, double jd) {
    const halvane::Instant instant = halvane::Instant::of_ut1(jd);
    if (body == Body::sun) {
        const halvane::SunPlace sun = sun_medium(ephemeris, instant, observer);
        return altitude_of(ephemeris, instant, observer, sun.topocentric_right_ascension,
                           sun.topocentric_declination);
    }
    const halvane::MoonPlace moon = moon_medium(ephemeris, instant, observer);
    return altitude_of(ephemeris, instant, observer, moon.topocentric_right_ascension,
                       moon.topocentric_declination);
}

/// Error  raises Error (bad_argument) unless `to` follows `from` by at most `most` days.
void require_span(double from, double to, double most) {
    if (!(from <= to))
        raise_bad_argument("The second moment lies before the first.");
    require_within("The days between the two moments", to - from, 0, most);
}

halvane::Phase engine_phase(int quarter) {
    constexpr halvane::Phase phases[] = {halvane::Phase::new_moon, halvane::Phase::first_quarter,
                                         halvane::Phase::full_moon, halvane::Phase::last_quarter};
    return phases[quarter];
}

constexpr int quarters = 4;

/// The phase of so many quarters of lunations after the New Moon of 2000 January 6        [d, dynamical]
double phase_of_quarter(Ephemeris& ephemeris, int count, const halvane::Observer* observer) {
    const int quarter = (count % quarters + quarters) % quarters;
    const halvane::Phase phase = engine_phase(quarter);
    return refined_phase(ephemeris, phase, phase_estimate(phase, count / static_cast<double>(quarters)),
                         observer);
}

/// Returns a null pointer for one.
const halvane::Observer* own_observer(const Observer* observer, halvane::Observer& own) {
    if (observer == nullptr)
        return nullptr;
    own = engine_observer(*observer);
    return &own;
}

} // namespace

BodyDay sun_day(const Engine& engine, const Date& date, const Observer& observer, const Clock& clock,
                const Horizon& horizon) {
    return guarded([&] {
        Ephemeris& ephemeris = ephemeris_of(engine);
        const SearchedDay day(date, observer, clock, horizon);
        const halvane::RiseSet events =
            find_rise_set(ephemeris, Target::sun, day.midnight, day.observer, day.horizon);
        return BodyDay{clock_time(events.rise), sun_transit(ephemeris, day, events.horizon_altitude),
                       clock_time(events.set)};
    });
}

BodyDay moon_day(const Engine& engine, const Date& date, const Observer& observer, const Clock& clock,
                 const Horizon& horizon) {
    return guarded([&] {
        const SearchedDay day(date, observer, clock, horizon);
        Preferences preferences;
        preferences.elevation_setting = horizon.height_counts ? "1" : "0";
        preferences.clock_precision = "0";
        const MoonTimes times = halvane::moon_day(ephemeris_of(engine), preferences,
                                                  location_at(observer, day.ahead, horizon), day.jd, 0);
        return BodyDay{clock_time(times.rise), clock_time(times.transit), clock_time(times.set)};
    });
}

Twilight twilight(const Engine& engine, const Date& date, const Observer& observer, const Clock& clock,
                  double depression, const Horizon& horizon) {
    return guarded([&] {
        require_within("A depression", depression, 0, 90);
        SearchedDay day(date, observer, clock, horizon);
        day.horizon.fajer_angle = depression;
        const halvane::RiseSet events =
            find_rise_set(ephemeris_of(engine), Target::fajer, day.midnight, day.observer, day.horizon);
        return Twilight{clock_time(events.rise), clock_time(events.set)};
    });
}

std::vector<AltitudePassage> altitude_passages(const Engine& engine, Body body, double altitude,
                                               const Instant& from, const Instant& to,
                                               const Observer& observer) {
    return guarded([&] {
        constexpr double step = 10.0 / 1440;       // ten minutes [d]
        constexpr double tolerance = 0.01 / 86400; // a hundredth of a second [d]
        constexpr double most_days = 400;
        require_within("An altitude", altitude, -90, 90);
        const double first = engine_instant(from).ut1();
        const double last = engine_instant(to).ut1();
        require_span(first, last, most_days);
        const halvane::Observer own = engine_observer(observer);
        Ephemeris& ephemeris = ephemeris_of(engine);
        const auto above = [&](double jd) { return altitude_at(ephemeris, body, own, jd) - altitude; };

        std::vector<AltitudePassage> passages;
        double a = first;
        double at_a = above(a);
        for (int steps = 1; a < last; ++steps) {
            const double b = std::min(first + steps * step, last);
            const double at_b = above(b);
            if ((at_a < 0) != (at_b < 0))
                passages.push_back(
                    {Instant::of_ut1(bracketed_root(above, a, at_a, b, at_b, tolerance)), at_a < 0});
            a = b;
            at_a = at_b;
        }
        return passages;
    });
}

std::vector<PhaseMoment> moon_phases(const Engine& engine, const Instant& from, const Instant& to,
                                     const Observer* observer) {
    return guarded([&] {
        constexpr double most_days = 400 * 365.25;
        const double first = engine_instant(from).dynamical();
        const double last = engine_instant(to).dynamical();
        require_span(first, last, most_days);
        halvane::Observer own;
        const halvane::Observer* seen_by = own_observer(observer, own);
        Ephemeris& ephemeris = ephemeris_of(engine);

        // Mean lunations are less than a day from the book's, those less than a day from the phases.
        const int begin = static_cast<int>(std::floor(mean_lunation(first) * quarters)) - 1;
        std::vector<PhaseMoment> moments;
        for (int count = begin;; ++count) {
            const double jd = phase_of_quarter(ephemeris, count, seen_by);
            if (jd > last)
                return moments;
            if (jd >= first) {
                const int quarter = (count % quarters + quarters) % quarters;
                moments.push_back(
                    {static_cast<Phase>(quarter), (count - quarter) / quarters, Instant::of_dynamical(jd)});
            }
        }
    });
}

Instant conjunction(const Engine& engine, const Instant& near, const Observer* observer) {
    return guarded([&] {
        const double jd = engine_instant(near).dynamical();
        halvane::Observer own;
        const halvane::Observer* seen_by = own_observer(observer, own);
        Ephemeris& ephemeris = ephemeris_of(engine);
        const int middle = static_cast<int>(std::lround(mean_lunation(jd)));
        double nearest = phase_of_quarter(ephemeris, middle * quarters, seen_by);
        for (const int lunation : {middle - 1, middle + 1}) {
            const double other = phase_of_quarter(ephemeris, lunation * quarters, seen_by);
            if (std::fabs(other - jd) < std::fabs(nearest - jd))
                nearest = other;
        }
        return Instant::of_dynamical(nearest);
    });
}

} // namespace halvane::v1
