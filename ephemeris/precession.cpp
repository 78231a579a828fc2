// SPDX-License-Identifier: MIT
#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"

#include <cmath>

namespace halvane {

void precess_to_j2000(const Instant& instant, double right_ascension, double declination,
                      double& right_ascension_2000, double& declination_2000) {
    using std::cos;
    using std::sin;
    const double jd = instant.jd();
    constexpr double radians_per_second = radians_per_degree / 3600;
    const double start = (jd - epoch_j2000) / 36525;
    const double t = (epoch_j2000 - jd) / 36525;
    const double common = (2306.2181 + 1.39656 * start - 0.000139 * start * start) * t;
    const double zeta =
        (common + (0.30188 - 0.000344 * start) * t * t + 0.017998 * t * t * t) * radians_per_second;
    const double z =
        (common + (1.09468 + 0.000066 * start) * t * t + 0.018203 * t * t * t) * radians_per_second;
    const double theta = ((2004.3109 - 0.8533 * start - 0.000217 * start * start) * t -
                          (0.42665 + 0.000217 * start) * t * t - 0.041833 * t * t * t) *
                         radians_per_second;

    const double delta = declination * radians_per_degree;
    const double a = right_ascension * radians_per_degree + zeta;
    const double east = cos(delta) * sin(a);
    const double equinox = cos(theta) * cos(delta) * cos(a) - sin(theta) * sin(delta);
    const double pole = sin(theta) * cos(delta) * cos(a) + cos(theta) * sin(delta);
    right_ascension_2000 = rev360((atan2(equinox, east) + z) * degrees_per_radian);
    declination_2000 = asin(pole) * degrees_per_radian;
}

} // namespace halvane
