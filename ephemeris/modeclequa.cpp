#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"

#include <cmath>

namespace halvane {

void modeclequa(double /*pi_value*/, double /*jd*/, double obliquity, double longitude, double latitude,
                double& right_ascension, double& declination) {
    using std::cos;
    using std::sin;
    const double epsilon = obliquity * radians_per_degree;
    const double lambda = longitude * radians_per_degree;
    const double beta = latitude * radians_per_degree;
    const double sine_lambda = sin(lambda);
    const double sine_epsilon = sin(epsilon);
    const double cosine_epsilon = cos(epsilon);
    const double sine_beta = sin(beta);
    const double cosine_beta = cos(beta);
    right_ascension =
        rev360(atan2(cos(lambda), sine_lambda * cosine_epsilon - sine_beta / cosine_beta * sine_epsilon) *
               degrees_per_radian);
    declination =
        asin(sine_beta * cosine_epsilon + cosine_beta * sine_epsilon * sine_lambda) * degrees_per_radian;
}

} // namespace halvane
