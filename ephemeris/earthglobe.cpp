// SPDX-License-Identifier: MIT
#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"

#include <cmath>

namespace halvane {

GeocentricRadius geocentric_radius(double latitude, double height) {
    constexpr double polar_over_equatorial = 0.99664719;
    constexpr double equatorial_radius_m = 6378140;
    const double phi = latitude * radians_per_degree;
    const double u = std::atan(polar_over_equatorial * std::tan(phi));
    return {polar_over_equatorial * std::sin(u) + height / equatorial_radius_m * std::sin(phi),
            std::cos(u) + height / equatorial_radius_m * std::cos(phi)};
}

} // namespace halvane
