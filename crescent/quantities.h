// SPDX-License-Identifier: MIT
#pragma once

#include "ephemeris/ephemeris.h"
#include "ephemeris/illumination.h"
#include "ephemeris/moon.h"
#include "ephemeris/sun.h"

namespace halvane {

/// Where Sun and Moon stand and what the Moon shows at one instant; airless, angles in degrees.
struct CrescentQuantities {
    double moon_altitude = 0;
    double moon_azimuth = 0;
    double sun_altitude = 0;
    double sun_azimuth = 0;
    double elongation = 0;
    double phase_angle = 0;
    double illuminated_fraction = 0;
    double semidiameter = 0; ///< of the Moon, seen from where the places are
    double width = 0;        ///< of the crescent at its middle

    double relative_altitude() const { return moon_altitude - sun_altitude; }
    double relative_azimuth() const { return moon_azimuth - sun_azimuth; }
    double width_minutes() const { return width * 60; } ///< [arc minutes]
    double magnitude() const;
};

/// In     moon, sun     geocentric or topocentric, both alike
///        semidiameter  of the Moon [deg]; radius of the Sun's orbit [AU]; distance of the Moon [km]
/// Source Meeus, Astronomical Algorithms, chapter "Illuminated Fraction of the Moon's Disk"; magnitude after
///        Allen, Astrophysical Quantities.
CrescentQuantities crescent_quantities(Ephemeris& ephemeris, const Instant& instant, const Observer& observer,
                                       const EquatorialPlace& moon, const EquatorialPlace& sun,
                                       double semidiameter, double radius, double distance);

/// The quantities of two topocentric places.
CrescentQuantities topocentric_quantities(Ephemeris& ephemeris, const Instant& instant,
                                          const Observer& observer, const MoonPlace& moon,
                                          const SunPlace& sun);

} // namespace halvane
