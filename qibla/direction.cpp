// SPDX-License-Identifier: MIT
#include "qibla/direction.h"

#include "base/failure.h"
#include "base/numberformat.h"
#include "ephemeris/modgeneral.h"

#include <cmath>

namespace halvane {

double qiblah_bearing(double longitude, double latitude) {
    const double kaaba = kaaba_latitude * radians_per_degree;
    const double place = latitude * radians_per_degree;
    const double eastward = (kaaba_longitude - longitude) * radians_per_degree;
    const double n = std::cos(kaaba) * std::sin(eastward);
    const double d =
        std::sin(kaaba) * std::cos(place) - std::cos(kaaba) * std::sin(place) * std::cos(eastward);
    const double angle = std::atan(require_finite(
                             n / d, {"the Qiblah direction of this location", "اتجاه القبلة لهذا الموقع"})) *
                         degrees_per_radian;
    if (n < 0 && d > 0)
        return angle + 360;
    return n != 0 && d < 0 ? angle + 180 : angle;
}

float qiblah_direction(double longitude, double latitude) {
    return static_cast<float>(numeric_prefix(format_number(qiblah_bearing(longitude, latitude), "###0.0")));
}

} // namespace halvane
