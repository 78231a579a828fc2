#include "events/modhourangle.h"

#include "ephemeris/modgeneral.h"

#include <cmath>

namespace halvane {

void modhourangle(double lat, double dec, double azimuth, double& h1, int& flag1, double& h2, int& flag2) {
    const double b = rev180(lat) * radians_per_degree;
    const double a = rev180(dec) * radians_per_degree;
    const double c = rev180(azimuth) * radians_per_degree;
    const double sine_c = std::sin(c);
    const double cosine_c = std::cos(c);
    const double u = sine_c * std::sin(b);
    const double w = std::sin(a) * sine_c * std::cos(b);
    const double m = std::cos(a) * std::sqrt(cosine_c * cosine_c + u * u);
    if (std::fabs(w) > m) {
        flag1 = -1;
        flag2 = -1;
        return;
    }
    const double g = asin(w / m);
    const double q = atan2(-cosine_c, u);
    const double first = revpi(g - q);
    const double second = revpi(-g - (q + pi));
    flag1 = first * c > 0 ? -1 : 0;
    flag2 = second * c > 0 ? -1 : 0;
    h1 = first * degrees_per_radian;
    h2 = second * degrees_per_radian;
}

} // namespace halvane
