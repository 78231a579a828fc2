#include "ephemeris/earthorientation.h"
#include "ephemeris/interpolation.h"
#include "ephemeris/orientationterms.h"

#include "calendar/moddeltat.h"

#include <cmath>

namespace halvane {
namespace {

/// Nutation in longitude, in obliquity and true obliquity.
InterpolatedSeries::Values computed_orientation(double days) {
    const double tau = days / 365250;
    const double t = 10 * tau;
    const double omega = reduce360(125.04452 - 1934.136261 * t) * radians_per_degree;
    const double sun = reduce360(280.4665 + 36000.7698 * t) * radians_per_degree;
    const double moon = reduce360(218.3165 + 481267.8813 * t) * radians_per_degree;
    const LowNutation nutation = low_nutation(omega, sun, moon);
    return {nutation.longitude, nutation.obliquity, mean_obliquity(tau / 10) + nutation.obliquity};
}

InterpolatedSeries interpolated_orientation(computed_orientation);

void hand_out(double dynamical_time, double& nutation_obliquity, double& nutation_longitude,
              double& true_obliquity) {
    const double days = dynamical_time - epoch_j2000;
    const InterpolatedSeries::Values values =
        interpolating ? interpolated_orientation.at(days) : computed_orientation(days);
    nutation_longitude = values[0];
    nutation_obliquity = values[1];
    true_obliquity = values[2];
}

} // namespace

LowNutation low_nutation(double omega, double sun, double moon) {
    using std::cos;
    using std::sin;
    return {(-17.2 * sin(omega) - 1.32 * sin(2 * sun) - 0.23 * sin(2 * moon) + 0.21 * sin(2 * omega)) / 3600,
            (9.2 * cos(omega) + 0.57 * cos(2 * sun) + 0.1 * cos(2 * moon) - 0.09 * cos(2 * omega)) / 3600};
}

void modobliquitylow(double jd, double& nutation_obliquity, double& nutation_longitude,
                     double& true_obliquity) {
    hand_out(jd + days_to_dynamical_time(jd), nutation_obliquity, nutation_longitude, true_obliquity);
}

void modobliquityvlow(double jd, double& nutation_obliquity, double& nutation_longitude,
                      double& true_obliquity) {
    double delta_t = 0;
    moddeltat(jd, delta_t);
    hand_out(jd + delta_t, nutation_obliquity, nutation_longitude, true_obliquity);
}

} // namespace halvane
