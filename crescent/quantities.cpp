// SPDX-License-Identifier: MIT
#include "crescent/quantities.h"

#include "ephemeris/coordinates.h"

#include <cmath>

namespace halvane {

double CrescentQuantities::magnitude() const {
    return -12.73 + 0.026 * std::fabs(phase_angle) + 4e-09 * std::pow(phase_angle, 4);
}

CrescentQuantities crescent_quantities(Ephemeris& ephemeris, const Instant& instant, const Observer& observer,
                                       const EquatorialPlace& moon, const EquatorialPlace& sun,
                                       double semidiameter, double radius, double distance) {
    CrescentQuantities q;
    altazm_of(ephemeris, instant, observer, moon.right_ascension, moon.declination, q.moon_altitude,
              q.moon_azimuth);
    altazm_of(ephemeris, instant, observer, sun.right_ascension, sun.declination, q.sun_altitude,
              q.sun_azimuth);

    const Illumination lit = moon_illumination(moon, sun, radius, distance);
    q.elongation = lit.elongation;
    q.phase_angle = lit.phase_angle;
    q.illuminated_fraction = lit.fraction;
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
