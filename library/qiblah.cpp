// SPDX-License-Identifier: MIT
#include "halvane/qiblah.h"

#include "calendar/moddeltat.h"
#include "library/convert.h"
#include "library/guarded.h"
#include "library/parts.h"
#include "qibla/direction.h"
#include "qibla/qibladay.h"

namespace halvane::v1 {

double qiblah_direction(double latitude, double longitude) {
    return guarded([&] {
        engine_observer({latitude, longitude, 0}); // for its checks
        return qiblah_bearing(longitude, latitude);
    });
}

SunInDirection sun_in_direction(const Engine& engine, const Date& date, const Observer& observer,
                                const Clock& clock, double azimuth, bool shadow, const Horizon& horizon) {
    return guarded([&] {
        require_within("An azimuth", azimuth, 0, 360);
        engine_horizon(horizon, observer); // for its checks
        const double jd = checked_julian_day(date);
        QiblahSearch search;
        search.observer = engine_observer(observer);
        search.zone = clock.hours_ahead(date);
        search.azimuth = shadow ? range(azimuth + 180) : azimuth;
        moddeltat(jd, search.delta_t);
        search.altitude_limit = qiblah_altitude_limit(observer.height, horizon.pressure, horizon.temperature);
        search.precision = 0;
        const QiblahDay day = qiblah_day(ephemeris_of(engine), search, jd, 0);
        SunInDirection moments;
        const auto take = [](const std::optional<QiblahMoment>& moment, ClockTime& time, bool& below) {
            if (!moment)
                return;
            time = {moment->hours, Missing::no};
            below = moment->below_horizon;
        };
        take(day.first, moments.first, moments.first_below_horizon);
        take(day.second, moments.second, moments.second_below_horizon);
        return moments;
    });
}

} // namespace halvane::v1
