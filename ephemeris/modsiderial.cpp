#include "ephemeris/earthorientation.h"
#include "ephemeris/orientation.h"
#include "ephemeris/orientationterms.h"

#include "calendar/moddeltat.h"

#include <cmath>

namespace halvane {
namespace {

double into_turn(double x) {
    const double turns = x / 360;
    if (x >= 360)
        return (turns - std::floor(turns)) * 360;
    return x < 0 ? std::fabs((std::floor(turns) - turns) * 360) : x;
}

/// Days of UT1 from 2000: the sidereal clock runs on universal time, so that Delta T comes off dynamical
/// time.
double universal_days(double jd) {
    double delta_t = 0;
    if (tdtinput == 1)
        moddeltat(jd, delta_t);
    return jd - delta_t - epoch_j2000;
}

} // namespace

double mean_sidereal_time(double days) {
    const double t = days / 36525;
    return 280.46061837 + 360.98564736629 * days + 0.000387933 * t * t - t * t * t / 38710000;
}

SkyFrame sky_frame(double jd, double true_obliquity, double nutation_longitude) {
    const double epsilon = true_obliquity * radians_per_degree;
    const double cosine = std::cos(epsilon);
    return {std::sin(epsilon), cosine, mean_sidereal_time(universal_days(jd)) + nutation_longitude * cosine};
}

void modsiderial(double jd, double& sidereal_time) {
    sidereal_time = into_turn(orientation_of(jd).frame.sidereal_time);
}

void modsideriallow(double jd, double& sidereal_time) {
    double nutation_longitude = 0;
    double nutation_obliquity = 0;
    double true_obliquity = 0;
    modobliquityvlow(jd, nutation_obliquity, nutation_longitude, true_obliquity);
    sidereal_time = into_turn(mean_sidereal_time(jd - epoch_j2000) +
                              nutation_longitude * std::cos(true_obliquity * radians_per_degree));
}

void modlasttdt(double jd, double longitude, double obliquity, double nutation, double& sidereal_time) {
    sidereal_time =
        rev360(mean_sidereal_time(universal_days(jd)) + nutation * std::cos(obliquity) + longitude);
}

} // namespace halvane
