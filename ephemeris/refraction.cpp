// SPDX-License-Identifier: MIT
#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"

#include <cmath>

namespace halvane {

double refracted(double altitude) {
    const double argument = altitude + 7.31 / (altitude + 4.4);
    return altitude + 1 / std::tan(argument * radians_per_degree) / 60;
}

} // namespace halvane
