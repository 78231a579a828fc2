// SPDX-License-Identifier: MIT
#include "ephemeris/ephemeris.h"
#include "ephemeris/orientationterms.h"

#include <cmath>

namespace halvane {
namespace {

double into_turn(double x) {
    const double turns = x / 360;
    if (x >= 360)
        return (turns - std::floor(turns)) * 360;
    return x < 0 ? std::fabs((std::floor(turns) - turns) * 360) : x;
}

} // namespace

double mean_sidereal_time(double days) {
    const double t = days / 36525;
    return 280.46061837 + 360.98564736629 * days + 0.000387933 * t * t - t * t * t / 38710000;
}

SkyFrame sky_frame(const Instant& instant, double true_obliquity, double nutation_longitude) {
    const double epsilon = true_obliquity * radians_per_degree;
    const double cosine = std::cos(epsilon);
    return {std::sin(epsilon), cosine,
            mean_sidereal_time(instant.ut1() - epoch_j2000) + nutation_longitude * cosine};
}

SkyFrame sky_frame(const Instant& instant, const LowOrientation& orientation) {
    return {orientation.sine_obliquity, orientation.cosine_obliquity,
            mean_sidereal_time(instant.ut1() - epoch_j2000) +
                orientation.nutation_longitude * orientation.cosine_obliquity};
}

double sidereal_time(Ephemeris& ephemeris, const Instant& instant) {
    return into_turn(ephemeris.orientation(instant).frame.sidereal_time);
}

double low_sidereal_time(Ephemeris& ephemeris, const Instant& instant) {
    const LowOrientation& low = ephemeris.low_orientation(instant.dynamical_as_of_ut1() - epoch_j2000);
    return into_turn(mean_sidereal_time(instant.jd() - epoch_j2000) +
                     low.nutation_longitude * low.cosine_obliquity);
}

double local_sidereal_time(const Instant& instant, double longitude, double obliquity, double nutation) {
    return rev360(mean_sidereal_time(instant.ut1() - epoch_j2000) + nutation * std::cos(obliquity) +
                  longitude);
}

} // namespace halvane
