// SPDX-License-Identifier: MIT
#include "ephemeris/illumination.h"

#include "ephemeris/modgeneral.h"

#include <cmath>

namespace halvane {

using std::cos;
using std::sin;

Illumination moon_illumination(const EquatorialPlace& moon, const EquatorialPlace& sun, double radius,
                               double distance) {
    const double moon_declination = moon.declination * radians_per_degree;
    const double sun_declination = sun.declination * radians_per_degree;
    const double cosine_elongation =
        sin(sun_declination) * sin(moon_declination) +
        cos(moon_declination) * cos(sun_declination) *
            cos((sun.right_ascension - moon.right_ascension) * radians_per_degree);
    const double elongation = acos(cosine_elongation);
    const double sun_distance = radius * astronomical_unit_km;
    const double phase_angle =
        atan2(distance - sun_distance * cos(elongation), sun_distance * sin(elongation));
    return {elongation * degrees_per_radian, phase_angle * degrees_per_radian, (1 + cos(phase_angle)) / 2};
}

double bright_limb_angle(const EquatorialPlace& moon, const EquatorialPlace& sun) {
    const double difference = (sun.right_ascension - moon.right_ascension) * radians_per_degree;
    const double d0 = sun.declination * radians_per_degree;
    const double d = moon.declination * radians_per_degree;
    return atan2(sin(d0) * cos(d) - cos(d0) * sin(d) * cos(difference), cos(d0) * sin(difference)) *
           degrees_per_radian;
}

} // namespace halvane
