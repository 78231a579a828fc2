// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// Apparent place of the Moon for the observer of `loc.vsk` by the ELP-2000/85 tables.
/// In     pi_value  the caller's pi
///        jd        UT1, or TDT with `tdtinput` 1                                             [d]
/// Out    the members of MoonPlace in order
/// Reads `loc.vsk`, the switch `tdtinput` and the arrays of `elp.vsk` and `mterm.vsk`.
/// Accuracy  see docs/accuracy.md.
/// Source Chapront-Touze and Chapront, Lunar Tables and Programs from 4000 B.C. to A.D. 8000 (1991).
void modcormm(double pi_value, double jd, double& right_ascension, double& declination,
              double& topocentric_right_ascension, double& topocentric_declination, double& longitude,
              double& latitude, double& topocentric_longitude, double& topocentric_latitude, double& parallax,
              double& semidiameter, double& topocentric_semidiameter, double& distance);

/// The same by the periodic terms of Meeus (`mterm.vsk`), without the distance.
/// Source Meeus, Astronomical Algorithms, chapter "Position of the Moon".
void modcorml(double pi_value, double jd, double& right_ascension, double& declination,
              double& topocentric_right_ascension, double& topocentric_declination, double& longitude,
              double& latitude, double& topocentric_longitude, double& topocentric_latitude, double& parallax,
              double& semidiameter, double& topocentric_semidiameter);

/// The terms of Meeus with a four-term nutation for an observer at sea level given in arguments
/// [deg, east and north positive]; honours `tdtinput`, reads no file.
void modcormvl(double observer_longitude, double observer_latitude, double jd, double& right_ascension,
               double& declination, double& topocentric_right_ascension, double& topocentric_declination,
               double& longitude, double& latitude, double& topocentric_longitude,
               double& topocentric_latitude, double& parallax, double& semidiameter,
               double& topocentric_semidiameter, double& distance);

} // namespace halvane
