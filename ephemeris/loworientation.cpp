// SPDX-License-Identifier: MIT
#include "ephemeris/orientationterms.h"

#include <cmath>

namespace halvane {

InterpolatedSeries::Values low_orientation_values(const Theory& /*theory*/, double days) {
    const double tau = days / 365250;
    const double t = 10 * tau;
    const double omega = reduce360(125.04452 - 1934.136261 * t) * radians_per_degree;
    const double sun = reduce360(280.4665 + 36000.7698 * t) * radians_per_degree;
    const double moon = reduce360(218.3165 + 481267.8813 * t) * radians_per_degree;
    const LowNutation nutation = low_nutation(omega, sun, moon);
    return {nutation.longitude, nutation.obliquity, mean_obliquity(tau / 10) + nutation.obliquity};
}

LowNutation low_nutation(double omega, double sun, double moon) {
    using std::cos;
    using std::sin;
    return {(-17.2 * sin(omega) - 1.32 * sin(2 * sun) - 0.23 * sin(2 * moon) + 0.21 * sin(2 * omega)) / 3600,
            (9.2 * cos(omega) + 0.57 * cos(2 * sun) + 0.1 * cos(2 * moon) - 0.09 * cos(2 * omega)) / 3600};
}

} // namespace halvane
