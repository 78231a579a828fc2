// SPDX-License-Identifier: MIT
#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"

#include <cmath>

namespace halvane {

void equatorial_of(const SkyFrame& frame, double longitude, double latitude, double& right_ascension,
                   double& declination) {
    using std::cos;
    using std::sin;
    const double lambda = longitude * radians_per_degree;
    const double beta = latitude * radians_per_degree;
    const double sine_lambda = sin(lambda);
    const double sine_beta = sin(beta);
    const double cosine_beta = cos(beta);
    right_ascension = rev360(atan2(cos(lambda), sine_lambda * frame.cosine_obliquity -
                                                    sine_beta / cosine_beta * frame.sine_obliquity) *
                             degrees_per_radian);
    declination =
        asin(sine_beta * frame.cosine_obliquity + cosine_beta * frame.sine_obliquity * sine_lambda) *
        degrees_per_radian;
}

void equatorial_of(double obliquity, double longitude, double latitude, double& right_ascension,
                   double& declination) {
    const double epsilon = obliquity * radians_per_degree;
    equatorial_of({std::sin(epsilon), std::cos(epsilon), 0}, longitude, latitude, right_ascension,
                  declination);
}

} // namespace halvane
