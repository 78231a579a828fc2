// SPDX-License-Identifier: MIT
#include "qibla/dialgeometry.h"

#include "ephemeris/modgeneral.h"

#include <cmath>

namespace halvane {

DialPoint dial_line_end(float direction) {
    const double angle = static_cast<double>(direction) * radians_per_degree;
    return {dial_centre.x + dial_line_length * std::sin(angle),
            dial_centre.y - dial_line_length * std::cos(angle)};
}

} // namespace halvane
