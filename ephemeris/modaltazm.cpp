#include "ephemeris/coordinates.h"
#include "ephemeris/earthorientation.h"
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

HourPlace hour_place(const Observer& observer, double jd, double right_ascension, double declination) {
    double sidereal_time = 0;
    modsiderial(jd, sidereal_time);
    const double h =
        local_hour_angle(sidereal_time, observer.longitude, right_ascension) * radians_per_degree;
    const double delta = declination * radians_per_degree;
    return {h, std::cos(h), std::sin(delta), std::cos(delta)};
}

double altitude_of(const Observer& observer, const HourPlace& place) {
    return asin(observer.sine_latitude * place.sine_declination +
                observer.cosine_latitude * place.cosine_declination * place.cosine_hour_angle) *
           degrees_per_radian;
}

} // namespace

void altazm_of(const Observer& observer, double jd, double right_ascension, double declination,
               double& altitude, double& azimuth) {
    const HourPlace place = hour_place(observer, jd, right_ascension, declination);
    azimuth = rev360(atan2(place.cosine_hour_angle * observer.sine_latitude -
                               place.sine_declination / place.cosine_declination * observer.cosine_latitude,
                           std::sin(place.hour_angle)) *
                         degrees_per_radian +
                     180);
    altitude = altitude_of(observer, place);
}

double altitude_of(const Observer& observer, double jd, double right_ascension, double declination) {
    return altitude_of(observer, hour_place(observer, jd, right_ascension, declination));
}

void modaltazm(double jd, double right_ascension, double declination, double& altitude, double& azimuth) {
    altazm_of(stored_observer(), jd, right_ascension, declination, altitude, azimuth);
}

} // namespace halvane
