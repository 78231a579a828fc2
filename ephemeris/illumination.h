// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// Equatorial place                                                                           [deg]
struct EquatorialPlace {
    double right_ascension;
    double declination;
};

/// How the Sun lights the Moon's disc.
struct Illumination {
    double elongation = 0;  ///< of the Moon from the Sun, 0 to 180                             [deg]
    double phase_angle = 0; ///< at the Moon, from the Sun to the Earth: 0 full, 180 new        [deg]
    double fraction = 0;    ///< of the disc that is lit, 0 to 1
};

/// In     moon, sun  geocentric or topocentric, both alike
///        radius     of the Sun's orbit [AU]; distance of the Moon [km]
/// Source Meeus, Astronomical Algorithms, chapter "Illuminated Fraction of the Moon's Disk".
Illumination moon_illumination(const EquatorialPlace& moon, const EquatorialPlace& sun, double radius,
                               double distance);

/// Position angle of the middle of the Moon's bright limb, from the north of the disc to the east; -90 to
/// below 270                                                                                 [deg]
/// Source as moon_illumination.
double bright_limb_angle(const EquatorialPlace& moon, const EquatorialPlace& sun);

} // namespace halvane
