// SPDX-License-Identifier: MIT
#include "events/hourangle.h"

#include "ephemeris/modgeneral.h"

#include <cmath>

namespace halvane {

std::optional<AzimuthRoots> hour_angles_at(double latitude, double declination, double azimuth) {
    const double b = rev180(latitude) * radians_per_degree;
    const double a = rev180(declination) * radians_per_degree;
    const double c = rev180(azimuth) * radians_per_degree;
    const double sine_c = std::sin(c);
    const double cosine_c = std::cos(c);
    const double u = sine_c * std::sin(b);
    const double w = std::sin(a) * sine_c * std::cos(b);
    const double m = std::cos(a) * std::sqrt(cosine_c * cosine_c + u * u);
    if (std::fabs(w) > m)
        return std::nullopt;
    const double g = asin(w / m);
    const double q = atan2(-cosine_c, u);
    const double first = revpi(g - q);
    const double second = revpi(-g - (q + pi));
    return AzimuthRoots{{first * degrees_per_radian, !(first * c > 0)},
                        {second * degrees_per_radian, !(second * c > 0)}};
}

} // namespace halvane
