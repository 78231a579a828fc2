#include "qibla/qibladay.h"

#include "base/failure.h"
#include "calendar/civildate.h"
#include "calendar/modctim.h"
#include "ephemeris/coordinates.h"
#include "ephemeris/earthorientation.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/sun.h"
#include "events/modhourangle.h"
#include "events/modriseset.h"
#include "events/taggedtime.h"

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

/// The hour angles at which a Sun of some declination stands at the azimuth.
struct Roots {
    double hour_angle[2] = {0, 0};
    int flag[2] = {-1, -1};

    bool valid(QiblahRoot root) const { return flag[static_cast<int>(root)] == 0; }
    double operator[](QiblahRoot root) const { return hour_angle[static_cast<int>(root)]; }
};

Roots roots_of(const QiblahSearch& search, double declination) {
    Roots roots;
    modhourangle(search.observer.latitude, declination, search.azimuth, roots.hour_angle[0], roots.flag[0],
                 roots.hour_angle[1], roots.flag[1]);
    return roots;
}

bool is_below_horizon(const QiblahSearch& search, double jd) {
    const SunPlace sun = sun_medium(search.observer, jd);
    double altitude = 0;
    double azimuth = 0;
    altazm_of(search.observer, jd, sun.right_ascension, sun.declination, altitude, azimuth);
    return altitude < search.altitude_limit;
}

QiblahTime time_of(const QiblahSearch& search, const std::optional<QiblahMoment>& moment) {
    QiblahTime time{text_of(NoEvent::none), ""};
    if (!moment)
        return time;
    time.text = modctim(search.precision, moment->hours);
    if (moment->below_horizon)
        time.note = "Below Horizon";
    return time;
}

bool is_absent(const QiblahTime& time) {
    return time.text == text_of(NoEvent::none);
}

/// Whether the two times of a day have to change places.
bool out_of_order(const QiblahDay& day) {
    if (is_absent(day.first) || is_absent(day.second))
        return is_absent(day.first) && !is_absent(day.second);
    return day.second.text < day.first.text;
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

QiblahFind find_qiblah_moment(const QiblahSearch& search, double base, QiblahRoot root) {
    const double sun_later = root == QiblahRoot::second ? search.delta_t : 0;
    QiblahFind find;
    const std::optional<double> settled = settled_hours([&](double t) -> std::optional<double> {
        const SunPlace sun = sun_medium(search.observer, base + sun_later + t / hours_per_day);
        double sidereal_time = 0;
        modsiderial(base + t / hours_per_day, sidereal_time);
        const double hour_angle = rangeh(sidereal_time + search.observer.longitude - sun.right_ascension);
        const Roots roots = roots_of(search, sun.declination);
        find.second_root = roots.valid(QiblahRoot::second);
        if (!roots.valid(root))
            return std::nullopt;
        return rangeh(rangeh(roots[root]) - hour_angle) / degrees_per_hour + t;
    });
    if (settled) {
        const double hours = into_day(*settled);
        find.moment = {hours, is_below_horizon(search, base + search.delta_t + hours / hours_per_day)};
    }
    return find;
}

namespace {

QiblahDay times_of_day(const QiblahSearch& search, double jd, int summer_hours) {
    const double base = jd - (search.zone + summer_hours) / hours_per_day;
    const QiblahFind first = find_qiblah_moment(search, base, QiblahRoot::first);
    QiblahDay day;
    day.first = time_of(search, first.moment);
    if (first.second_root)
        day.second = time_of(search, find_qiblah_moment(search, base, QiblahRoot::second).moment);
    if (out_of_order(day))
        std::swap(day.first, day.second);
    return day;
}

} // namespace

QiblahDay qiblah_day(const QiblahSearch& search, double jd, int summer_hours) {
    return about_day(jd, [&] { return times_of_day(search, jd, summer_hours); });
}

} // namespace halvane
