// SPDX-License-Identifier: MIT
#include "ephemeris/coordinates.h"
#include "ephemeris/ephemeris.h"
#include "ephemeris/modgeneral.h"

#include <cmath>

namespace halvane {

double local_hour_angle(double sidereal_time, double longitude, double right_ascension) {
    return rev360(sidereal_time + longitude - right_ascension);
}

namespace {

/// Hour angle and declination of a place, with what both coordinates need of them.
struct HourPlace {
    double hour_angle; ///< [rad]
    double cosine_hour_angle;
    double sine_declination;
    double cosine_declination;
};

HourPlace hour_place(Ephemeris& ephemeris, const Instant& instant, const Observer& observer,
                     double right_ascension, double declination) {
    const double h =
        local_hour_angle(sidereal_time(ephemeris, instant), observer.longitude, right_ascension) *
        radians_per_degree;
    const double delta = declination * radians_per_degree;
    return {h, std::cos(h), std::sin(delta), std::cos(delta)};
}

double altitude_of(const Observer& observer, const HourPlace& place) {
    return asin(observer.sine_latitude * place.sine_declination +
                observer.cosine_latitude * place.cosine_declination * place.cosine_hour_angle) *
           degrees_per_radian;
}

} // namespace

void altazm_of(Ephemeris& ephemeris, const Instant& instant, const Observer& observer, double right_ascension,
               double declination, double& altitude, double& azimuth) {
    const HourPlace place = hour_place(ephemeris, instant, observer, right_ascension, declination);
    azimuth = rev360(atan2(place.cosine_hour_angle * observer.sine_latitude -
                               place.sine_declination / place.cosine_declination * observer.cosine_latitude,
                           std::sin(place.hour_angle)) *
                         degrees_per_radian +
                     180);
    altitude = altitude_of(observer, place);
}

double altitude_of(Ephemeris& ephemeris, const Instant& instant, const Observer& observer,
                   double right_ascension, double declination) {
    return altitude_of(observer, hour_place(ephemeris, instant, observer, right_ascension, declination));
}

void equatorial_of_altazm(Ephemeris& ephemeris, const Instant& instant, const Observer& observer,
                          double altitude, double azimuth, double& right_ascension, double& declination) {
    using std::cos;
    using std::sin;
    const double a = rev360(azimuth + 180) * radians_per_degree;
    const double h = altitude * radians_per_degree;
    const double hour_angle =
        atan2(cos(a) * observer.sine_latitude + observer.cosine_latitude * std::tan(h), sin(a)) *
        degrees_per_radian;
    declination = asin(observer.sine_latitude * sin(h) - observer.cosine_latitude * cos(h) * cos(a)) *
                  degrees_per_radian;
    right_ascension = rev360(sidereal_time(ephemeris, instant) + observer.longitude - hour_angle);
}

} // namespace halvane
