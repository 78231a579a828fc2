#include "ephemeris/coordinates.h"
#include "ephemeris/earthorientation.h"
#include "ephemeris/modgeneral.h"

#include <cmath>

namespace halvane {

double local_hour_angle(double sidereal_time, double longitude, double right_ascension) {
    return rev360(sidereal_time + longitude - right_ascension);
}

void altazm_of(const Observer& observer, double jd, double right_ascension, double declination,
               double& altitude, double& azimuth) {
    using std::cos;
    using std::sin;
    double sidereal_time = 0;
    modsiderial(jd, sidereal_time);
    const double h =
        local_hour_angle(sidereal_time, observer.longitude, right_ascension) * radians_per_degree;
    const double delta = declination * radians_per_degree;
    const double cosine_h = cos(h);
    const double sine_delta = sin(delta);
    const double cosine_delta = cos(delta);
    azimuth =
        rev360(atan2(cosine_h * observer.sine_latitude - sine_delta / cosine_delta * observer.cosine_latitude,
                     sin(h)) *
                   degrees_per_radian +
               180);
    altitude =
        asin(observer.sine_latitude * sine_delta + observer.cosine_latitude * cosine_delta * cosine_h) *
        degrees_per_radian;
}

void modaltazm(double jd, double right_ascension, double declination, double& altitude, double& azimuth) {
    altazm_of(stored_observer(), jd, right_ascension, declination, altitude, azimuth);
}

} // namespace halvane
