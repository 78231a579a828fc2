// SPDX-License-Identifier: MIT
#include "prayer/moonday.h"

#include "base/failure.h"
#include "calendar/civildate.h"
#include "calendar/shownclock.h"
#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/moon.h"
#include "settings/enginesettings.h"

#include <cmath>

namespace halvane {
namespace {

constexpr double hours_per_day = 24;

double into_day(double hours) {
    require_finite(hours, {"the Moon's transit", "عبور القمر"});
    while (hours < 0)
        hours += hours_per_day;
    while (hours >= hours_per_day)
        hours -= hours_per_day;
    return hours;
}

double hour_angle_of(double sidereal_time, double longitude, double right_ascension) {
    double angle = require_finite(sidereal_time + longitude - right_ascension,
                                  {"the Moon's hour angle", "الزاوية الساعية للقمر"});
    while (angle <= -180)
        angle += 360;
    while (angle > 180)
        angle -= 360;
    return angle;
}

/// Time of the meridian passage, folded into the day                                            [h]
double transit_hours(Ephemeris& ephemeris, const Observer& observer, double jd, double clock_ahead) {
    constexpr double tolerance = 0.0002777777; // one second
    const Instant midnight = Instant::of_ut1(jd - clock_ahead / hours_per_day);
    const double first = geocentric_moon_low(ephemeris, midnight).right_ascension - observer.longitude -
                         sidereal_time(ephemeris, midnight);
    double t = into_day(first / 360 * hours_per_day);
    SearchGuard guard({"the Moon's transit", "عبور القمر"});
    for (;;) {
        const Instant instant = Instant::of_ut1(jd - (clock_ahead - t) / hours_per_day);
        const double right_ascension = geocentric_moon_medium(ephemeris, instant).right_ascension;
        const double hour_angle =
            hour_angle_of(sidereal_time(ephemeris, instant), observer.longitude, right_ascension);
        const double next = guard.check(t - hour_angle / 360 * hours_per_day);
        if (std::fabs(t - next) <= tolerance)
            return into_day(next);
        t = next;
    }
}

/// In     horizon  altitude of rise and set [deg]
bool is_passage(Ephemeris& ephemeris, const Observer& observer, const Instant& instant, double horizon) {
    constexpr double meridian_tolerance = 7;
    const MoonPlace moon = geocentric_moon_low(ephemeris, instant);
    double altitude = 0;
    double azimuth = 0;
    altazm_of(ephemeris, instant, observer, moon.right_ascension, moon.declination, altitude, azimuth);
    const auto near = [azimuth](double meridian) {
        return std::fabs(azimuth - meridian) <= meridian_tolerance;
    };
    return altitude > horizon && (near(180) || near(0) || near(360));
}

} // namespace

RiseSet moon_rise_set(Ephemeris& ephemeris, const Preferences& preferences, const Location& location,
                      double jd, double clock_ahead) {
    return find_rise_set(ephemeris, Target::moon, Instant::of_ut1(jd - clock_ahead / hours_per_day),
                         observer_of(location), horizon_of(preferences, location));
}

namespace {

MoonTimes times_of_day(Ephemeris& ephemeris, const Preferences& preferences, const Location& location,
                       double jd, int summer_hours) {
    const double clock_ahead = location.zone + summer_hours;
    const RiseSet events = moon_rise_set(ephemeris, preferences, location, jd, clock_ahead);
    MoonTimes times{events.rise, NoEvent::none, events.set};

    const Observer observer = observer_of(location);
    const double transit = transit_hours(ephemeris, observer, jd, clock_ahead);
    const Instant passage = Instant::of_ut1(jd - (clock_ahead - transit) / hours_per_day);
    if (is_passage(ephemeris, observer, passage, events.horizon_altitude))
        times.transit = transit;
    if (shown_alike(events.rise, events.set, precision_of(preferences)) && !is(events.rise, NoEvent::up))
        times.transit = times.rise;
    return times;
}

} // namespace

MoonTimes moon_day(Ephemeris& ephemeris, const Preferences& preferences, const Location& location, double jd,
                   int summer_hours) {
    return about_place(location.name, [&] {
        return about_day(jd,
                         [&] { return times_of_day(ephemeris, preferences, location, jd, summer_hours); });
    });
}

} // namespace halvane
