#include "ephemeris/earthorientation.h"
#include "ephemeris/interpolation.h"
#include "ephemeris/meanobliquity.h"

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

double equation_of_equinoxes(double jd) {
    double nutation_longitude = 0;
    double nutation_obliquity = 0;
    double true_obliquity = 0;
    modobliquity(jd, nutation_longitude, nutation_obliquity, true_obliquity);
    return nutation_longitude * std::cos(true_obliquity * radians_per_degree);
}

/// The same by four terms.
double low_equation_of_equinoxes(double jd) {
    double nutation_longitude = 0;
    double nutation_obliquity = 0;
    double true_obliquity = 0;
    modobliquitylow(jd, nutation_obliquity, nutation_longitude, true_obliquity);
    return nutation_longitude * std::cos(true_obliquity * radians_per_degree);
}

/// Both equations.
InterpolatedSeries interpolated_equations([](double days) {
    const TdtSpan dynamical_time(1);
    const double jd = days + epoch_j2000;
    return InterpolatedSeries::Values{equation_of_equinoxes(jd), low_equation_of_equinoxes(jd)};
});

double equation(double jd, std::size_t which, double (*by_the_series)(double)) {
    return interpolating ? interpolated_equations.at(jd + days_to_dynamical_time(jd) - epoch_j2000)[which]
                         : by_the_series(jd);
}

} // namespace

double mean_sidereal_time(double days) {
    const double t = days / 36525;
    return 280.46061837 + 360.98564736629 * days + 0.000387933 * t * t - t * t * t / 38710000;
}

void modsiderial(double jd, double& sidereal_time) {
    sidereal_time =
        into_turn(mean_sidereal_time(universal_days(jd)) + equation(jd, 0, equation_of_equinoxes));
}

void modsideriallow(double jd, double& sidereal_time) {
    const TdtSpan universal_time(0);
    sidereal_time =
        into_turn(mean_sidereal_time(jd - epoch_j2000) + equation(jd, 1, low_equation_of_equinoxes));
}

double local_sidereal_time(double jd, double longitude, double equation) {
    return rev360(mean_sidereal_time(universal_days(jd)) + equation + longitude);
}

void modlasttdt(double jd, double longitude, double obliquity, double nutation, double& sidereal_time) {
    sidereal_time = local_sidereal_time(jd, longitude, nutation * std::cos(obliquity));
}

} // namespace halvane
