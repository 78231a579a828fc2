// SPDX-License-Identifier: MIT
#include "events/correction.h"

#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/moon.h"
#include "ephemeris/sun.h"
#include <cmath>

namespace halvane {

double hours_to_altitude(double altitude, double h0, double cosine_latitude, double declination,
                         double hour_angle) {
    const double days = (altitude - h0) / (360 * std::cos(declination * radians_per_degree) *
                                           cosine_latitude * std::sin(hour_angle * radians_per_degree));
    return 24 * days;
}

bool has_left_the_theories(double hours) {
    constexpr double a_thousand_years = 8766e3;
    return !(std::fabs(hours) < a_thousand_years);
}

double corrected_hours(Ephemeris& ephemeris, Body body, const Instant& start, const Observer& observer,
                       double hours, double h0) {
    return corrected_hours(ephemeris, body, start, observer, hours, h0,
                           {observer.longitude, observer.cosine_latitude});
}

double corrected_hours(Ephemeris& ephemeris, Body body, const Instant& start, const Observer& observer,
                       double hours, double h0, const HourAnglePlace& place) {
    const Instant instant = start.after_hours(hours);
    double right_ascension = 0;
    double declination = 0;
    if (body == Body::moon) {
        const MoonPlace moon = geocentric_moon_medium(ephemeris, instant);
        right_ascension = moon.right_ascension;
        declination = moon.declination;
    } else {
        const SunPlace sun = geocentric_sun_medium(ephemeris, instant);
        right_ascension = sun.right_ascension;
        declination = sun.declination;
    }
    const double altitude = altitude_of(ephemeris, instant, observer, right_ascension, declination);
    const double hour_angle =
        turn_into_360(sidereal_time(ephemeris, instant) + place.longitude - right_ascension);
    return hours + hours_to_altitude(altitude, h0, place.cosine_latitude, declination, hour_angle);
}

} // namespace halvane
