#include "ephemeris/coordinates.h"
#include "ephemeris/earthorientation.h"
#include "ephemeris/modgeneral.h"

#include <cmath>

namespace halvane {

void modaltazmequa(double jd, double altitude, double azimuth, double& right_ascension, double& declination) {
    using std::cos;
    using std::sin;
    const Observer& observer = stored_observer();
    const double a = rev360(azimuth + 180) * radians_per_degree;
    const double h = altitude * radians_per_degree;
    const double hour_angle =
        atan2(cos(a) * observer.sine_latitude + observer.cosine_latitude * std::tan(h), sin(a)) *
        degrees_per_radian;
    declination = asin(observer.sine_latitude * sin(h) - observer.cosine_latitude * cos(h) * cos(a)) *
                  degrees_per_radian;
    double sidereal_time = 0;
    modsiderial(jd, sidereal_time);
    right_ascension = rev360(sidereal_time + observer.longitude - hour_angle);
}

} // namespace halvane
