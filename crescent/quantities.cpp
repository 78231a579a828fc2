// SPDX-License-Identifier: MIT
#include "crescent/quantities.h"

#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"

#include <cmath>

namespace halvane {

double CrescentQuantities::magnitude() const {
    return -12.73 + 0.026 * std::fabs(phase_angle) + 4e-09 * std::pow(phase_angle, 4);
}

CrescentQuantities crescent_quantities(Ephemeris& ephemeris, const Instant& instant, const Observer& observer,
                                       const EquatorialPlace& moon, const EquatorialPlace& sun,
                                       double semidiameter, double radius, double distance) {
    using std::cos;
    using std::sin;
    CrescentQuantities q;
    altazm_of(ephemeris, instant, observer, moon.right_ascension, moon.declination, q.moon_altitude,
              q.moon_azimuth);
    altazm_of(ephemeris, instant, observer, sun.right_ascension, sun.declination, q.sun_altitude,
              q.sun_azimuth);

    const double moon_declination = moon.declination * radians_per_degree;
    const double sun_declination = sun.declination * radians_per_degree;
    const double cosine_elongation =
        sin(sun_declination) * sin(moon_declination) +
        cos(moon_declination) * cos(sun_declination) *
            cos((sun.right_ascension - moon.right_ascension) * radians_per_degree);
    const double elongation = acos(cosine_elongation);
    const double sun_distance = radius * astronomical_unit_km;
    const double phase_angle =
        atan2(distance - sun_distance * cos(elongation), sun_distance * sin(elongation));
    q.elongation = elongation * degrees_per_radian;
    q.phase_angle = phase_angle * degrees_per_radian;
    q.illuminated_fraction = (1 + cos(phase_angle)) / 2;
    q.semidiameter = semidiameter;
    q.width = 2 * q.illuminated_fraction * semidiameter;
    return q;
}

CrescentQuantities topocentric_quantities(Ephemeris& ephemeris, const Instant& instant,
                                          const Observer& observer, const MoonPlace& moon,
                                          const SunPlace& sun) {
    return crescent_quantities(ephemeris, instant, observer,
                               {moon.topocentric_right_ascension, moon.topocentric_declination},
                               {sun.topocentric_right_ascension, sun.topocentric_declination},
                               moon.topocentric_semidiameter, sun.radius, moon.distance);
}

} // namespace halvane
