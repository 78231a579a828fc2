// SPDX-License-Identifier: MIT
#include "qibla/qibladay.h"

#include "base/failure.h"
#include "calendar/civildate.h"
#include "calendar/shownclock.h"
#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/sun.h"
#include "events/hourangle.h"
#include "events/riseset.h"

#include <cmath>
#include <utility>

namespace halvane {
namespace {

constexpr double hours_per_day = 24;
constexpr double degrees_per_hour = 15;

/// Adds or takes off one day.
double into_day(double hours) {
    if (hours < 0)
        return hours + hours_per_day;
    return hours > hours_per_day ? hours - hours_per_day : hours;
}

bool is_below_horizon(Ephemeris& ephemeris, const QiblahSearch& search, const Instant& instant) {
    const SunPlace sun = geocentric_sun_medium(ephemeris, instant);
    return altitude_of(ephemeris, instant, search.observer, sun.right_ascension, sun.declination) <
           search.altitude_limit;
}

/// Whether the two moments of a day have to change places.
bool out_of_order(const QiblahDay& day, int precision) {
    if (!day.first || !day.second)
        return !day.first && day.second;
    return shown_clock(precision, day.second->hours) < shown_clock(precision, day.first->hours);
}

} // namespace

double range(double x) {
    return rev360(x);
}

double rangeh(double x) {
    return rev180(x);
}

double target_azimuth(float direction, bool shadow) {
    const double azimuth = direction;
    return shadow ? range(azimuth + 180) : azimuth;
}

double qiblah_altitude_limit(double height, double pressure, double temperature) {
    const double depression =
        horizon_dip(height) + horizon_refraction(pressure, temperature) + 0.2665639 - 0.0024;
    return -require_finite(depression, {"the Sun's altitude limit for this height, pressure and temperature",
                                        "حد ارتفاع الشمس لهذا الارتفاع و الضغط و الحرارة"});
}

std::optional<double> settled_hours(const SearchRound& round) {
    constexpr double tolerance = 0.000277778; // one second
    constexpr int last_count = 50;
    double t = 12;
    int count = 0;
    for (;;) {
        const std::optional<double> next = round(t);
        if (!next)
            return std::nullopt;
        const double change =
            std::fabs(require_finite(*next, {"a time of the Qiblah direction", "وقت اتجاه القبلة"}) - t);
        t = *next;
        if (change <= tolerance || ++count > last_count)
            return t;
    }
}

QiblahFind find_qiblah_moment(Ephemeris& ephemeris, const QiblahSearch& search, double base,
                              QiblahRoot root) {
    const double sun_later = root == QiblahRoot::second ? search.delta_t : 0;
    QiblahFind find;
    const std::optional<double> settled = settled_hours([&](double t) -> std::optional<double> {
        const SunPlace sun =
            geocentric_sun_medium(ephemeris, Instant::of_ut1(base + sun_later + t / hours_per_day));
        const double sidereal = sidereal_time(ephemeris, Instant::of_ut1(base + t / hours_per_day));
        const double hour_angle = rangeh(sidereal + search.observer.longitude - sun.right_ascension);
        const std::optional<AzimuthRoots> roots =
            hour_angles_at(search.observer.latitude, sun.declination, search.azimuth);
        find.second_root = roots && roots->second.valid;
        const AzimuthRoot wanted =
            roots ? (root == QiblahRoot::first ? roots->first : roots->second) : AzimuthRoot{};
        if (!wanted.valid)
            return std::nullopt;
        return rangeh(rangeh(wanted.hour_angle) - hour_angle) / degrees_per_hour + t;
    });
    if (settled) {
        const double hours = into_day(*settled);
        find.moment = {hours,
                       is_below_horizon(ephemeris, search,
                                        Instant::of_ut1(base + search.delta_t + hours / hours_per_day))};
    }
    return find;
}

namespace {

QiblahDay times_of_day(Ephemeris& ephemeris, const QiblahSearch& search, double jd, int summer_hours) {
    const double base = jd - (search.zone + summer_hours) / hours_per_day;
    const QiblahFind first = find_qiblah_moment(ephemeris, search, base, QiblahRoot::first);
    QiblahDay day;
    day.first = first.moment;
    if (first.second_root)
        day.second = find_qiblah_moment(ephemeris, search, base, QiblahRoot::second).moment;
    if (out_of_order(day, search.precision))
        std::swap(day.first, day.second);
    return day;
}

} // namespace

QiblahDay qiblah_day(Ephemeris& ephemeris, const QiblahSearch& search, double jd, int summer_hours) {
    return about_day(jd, [&] { return times_of_day(ephemeris, search, jd, summer_hours); });
}

} // namespace halvane
