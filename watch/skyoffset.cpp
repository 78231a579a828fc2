// SPDX-License-Identifier: MIT
#include "watch/skyoffset.h"

#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"

#include <cmath>

namespace halvane {

SkyOffset sky_offset(double from_longitude, double from_latitude, double to_longitude, double to_latitude) {
    using std::cos;
    using std::sin;
    const double difference = (to_longitude - from_longitude) * radians_per_degree;
    const double from = from_latitude * radians_per_degree;
    const double to = to_latitude * radians_per_degree;
    const double right = cos(to) * sin(difference);
    const double up = sin(to) * cos(from) - cos(to) * sin(from) * cos(difference);
    const double ahead = sin(to) * sin(from) + cos(to) * cos(from) * cos(difference);
    return {std::atan2(std::hypot(right, up), ahead) * degrees_per_radian,
            rev360(std::atan2(right, up) * degrees_per_radian)};
}

double apparent_altitude(double airless) {
    constexpr int rounds = 20; // each leaves a fifth of the error or less
    double apparent = airless;
    for (int i = 0; i < rounds; ++i)
        apparent = airless + (refracted(apparent) - apparent);
    return apparent;
}

} // namespace halvane
