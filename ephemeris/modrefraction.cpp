#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"

#include <cmath>

namespace halvane {

void modrefraction(double altitude, double& corrected) {
    const double argument = altitude + 7.31 / (altitude + 4.4);
    corrected = altitude + 1 / std::tan(argument * radians_per_degree) / 60;
}

} // namespace halvane
