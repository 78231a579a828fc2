// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// Apparent place of the Sun for the observer of `loc.vsk` by the complete VSOP87 series.
/// In     pi_value  the caller's pi
///        jd        UT1, or TDT with `tdtinput` 1                                             [d]
/// Out    the members of SunPlace in order
/// Reads `loc.vsk`, the switch `tdtinput` and the arrays of `termfull.vsk` and `mterm.vsk`.
/// Accuracy  see docs/accuracy.md.
/// Source Bretagnon and Francou, Astronomy and Astrophysics 202, 309 (1988); reduction after Meeus,
///        Astronomical Algorithms, chapter "Solar Coordinates".
void modcorsh(double pi_value, double jd, double& right_ascension, double& declination,
              double& topocentric_right_ascension, double& topocentric_declination, double& longitude,
              double& latitude, double& topocentric_longitude, double& topocentric_latitude, double& radius,
              double& equation_of_time);

/// The same by the 248 largest terms (`term.vsk`), with the mean aberration.
void modcorsm(double pi_value, double jd, double& right_ascension, double& declination,
              double& topocentric_right_ascension, double& topocentric_declination, double& longitude,
              double& latitude, double& topocentric_longitude, double& topocentric_latitude, double& radius,
              double& equation_of_time);

/// The same by the low-precision formulae of Meeus; the latitude is 0.
void modcorsl(double pi_value, double jd, double& right_ascension, double& declination,
              double& topocentric_right_ascension, double& topocentric_declination, double& longitude,
              double& latitude, double& topocentric_longitude, double& topocentric_latitude, double& radius,
              double& equation_of_time);

/// The low-precision formulae with a four-term nutation for an observer at sea level given in arguments
/// [deg, east and north positive]. `jd` is UT1 whatever `tdtinput` holds, but for the observer's sidereal
/// time; reads no file and needs no array.
void modcorsvl(double observer_longitude, double observer_latitude, double jd, double& right_ascension,
               double& declination, double& topocentric_right_ascension, double& topocentric_declination,
               double& longitude, double& latitude, double& topocentric_longitude,
               double& topocentric_latitude, double& radius);

} // namespace halvane
