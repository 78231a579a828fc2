// SPDX-License-Identifier: MIT
#include "calendar/moddeltat.h"

#include <array>
#include <cstddef>

namespace halvane {

namespace {

template <std::size_t N>
double polynomial(double x, const std::array<double, N>& coefficients) {
    double value = 0;
    for (std::size_t i = N; i-- > 0;)
        value = value * x + coefficients[i];
    return value;
}

/// Long-term parabola of the tidal slowing, u in centuries from 1820 [s].
double parabola(double y) {
    const double u = (y - 1820) / 100;
    return -20 + 32 * u * u;
}

double delta_t_seconds(double y) {
    if (y < -500)
        return parabola(y);
    if (y < 500)
        return polynomial(y / 100, std::array{10583.6, -1014.41, 33.78311, -5.952053, -0.1798452, 0.022174192,
                                              0.0090316521});
    if (y < 1600)
        return polynomial((y - 1000) / 100, std::array{1574.2, -556.01, 71.23472, 0.319781, -0.8503463,
                                                       -0.005050998, 0.0083572073});
    if (y < 1700)
        return polynomial(y - 1600, std::array{120.0, -0.9808, -0.01532, 1.0 / 7129});
    if (y < 1800)
        return polynomial(y - 1700, std::array{8.83, 0.1603, -0.0059285, 0.00013336, -1.0 / 1174000});
    if (y < 1860)
        return polynomial(y - 1800, std::array{13.72, -0.332447, 0.0068612, 0.0041116, -0.00037436,
                                               0.0000121272, -0.0000001699, 0.000000000875});
    if (y < 1900)
        return polynomial(y - 1860,
                          std::array{7.62, 0.5737, -0.251754, 0.01680668, -0.0004473624, 1.0 / 233174});
    if (y < 1920)
        return polynomial(y - 1900, std::array{-2.79, 1.494119, -0.0598939, 0.0061966, -0.000197});
    if (y < 1941)
        return polynomial(y - 1920, std::array{21.2, 0.84493, -0.0761, 0.0020936});
    if (y < 1961)
        return polynomial(y - 1950, std::array{29.07, 0.407, -1.0 / 233, 1.0 / 2547});
    if (y < 1986)
        return polynomial(y - 1975, std::array{45.45, 1.067, -1.0 / 260, -1.0 / 718});
    if (y < 2005)
        return polynomial(y - 2000,
                          std::array{63.86, 0.3345, -0.060374, 0.0017275, 0.000651814, 0.00002373599});
    if (y < 2050)
        return polynomial(y - 2000, std::array{62.92, 0.32217, 0.005589});
    if (y < 2150)
        return parabola(y) - 0.5628 * (2150 - y);
    return parabola(y);
}

} // namespace

void moddeltat(double jd, double& delta_t) {
    const double year = (jd - 1721057) / 365.2425;
    delta_t = delta_t_seconds(year) / 86400;
}

} // namespace halvane
