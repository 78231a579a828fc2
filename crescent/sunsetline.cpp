// SPDX-License-Identifier: MIT
#include "crescent/sunsetline.h"

#include "ephemeris/modgeneral.h"
#include "ephemeris/orientation.h"
#include "ephemeris/sun.h"

#include <cmath>

namespace halvane {
namespace {

/// The evening of a place where the Sun sets at `universal`, as far as the rules of sunset ask for it.
CrescentEvening evening_at(Ephemeris& ephemeris, const Observer& observer, double day, double universal,
                           double conjunction) {
    CrescentEvening evening;
    evening.day = day;
    evening.conjunction = conjunction;
    evening.sun_event = universal;
    evening.at_sun_event = crescent_sky(ephemeris, observer, universal);
    return evening;
}

} // namespace

std::optional<double> longitude_of_sunset(Ephemeris& ephemeris, double universal, double latitude) {
    constexpr double standard_altitude = -50.0 / 60;
    const Instant instant = Instant::of_ut1(universal);
    const SunPlace sun = geocentric_sun_high(ephemeris, instant);
    const double phi = latitude * radians_per_degree;
    const double delta = sun.declination * radians_per_degree;
    const double cosine =
        (std::sin(standard_altitude * radians_per_degree) - std::sin(phi) * std::sin(delta)) /
        (std::cos(phi) * std::cos(delta));
    if (std::fabs(cosine) > 1)
        return std::nullopt;
    const double hour_angle = std::acos(cosine) * degrees_per_radian;
    return rev180(rev360(sun.right_ascension + hour_angle - sidereal_time(ephemeris, instant)));
}

bool is_met_before_midnight(Ephemeris& ephemeris, const CataloguedCriterion& criterion, double day,
                            double conjunction) {
    constexpr int last_latitude = 60;
    const double midnight = day + 1;
    for (int latitude = -last_latitude; latitude <= last_latitude; ++latitude) {
        const auto longitude = longitude_of_sunset(ephemeris, midnight, latitude);
        if (!longitude)
            continue;
        const CrescentEvening evening =
            evening_at(ephemeris, observer_at(*longitude, latitude, 0), day, midnight, conjunction);
        const auto value = criterion_value(criterion, evening);
        if (value && class_of_value(criterion, *value) > 0)
            return true;
    }
    return false;
}

} // namespace halvane
