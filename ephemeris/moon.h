// SPDX-License-Identifier: MIT
#pragma once

#include "ephemeris/instant.h"
#include "ephemeris/observer.h"

namespace halvane {

class Ephemeris;

/// Apparent place of the Moon.
struct MoonPlace {
    double right_ascension = 0;             ///< geocentric, 0 to 360                          [deg]
    double declination = 0;                 ///< geocentric                                    [deg]
    double topocentric_right_ascension = 0; ///< 0 to 360                                      [deg]
    double topocentric_declination = 0;     ///<                                               [deg]
    double longitude = 0;                   ///< ecliptic, geocentric; not reduced at the end  [deg]
    double latitude = 0;                    ///< ecliptic, geocentric                          [deg]
    double topocentric_longitude = 0;       ///< ecliptic, 0 to 360                            [deg]
    double topocentric_latitude = 0;        ///< ecliptic                                      [deg]
    double parallax = 0;                    ///< horizontal                                    [deg]
    double semidiameter = 0;                ///< geocentric                                    [deg]
    double topocentric_semidiameter = 0;    ///<                                               [deg]
    double distance = 0;                    ///< centre to centre                              [km]
};

/// Apparent geocentric place of the Moon by the ELP-2000/85 tables; the topocentric members, the parallax and
/// the semidiameter stay 0. Needs `elp.vsk` and `mterm.vsk`.
/// Accuracy  see docs/accuracy.md.
/// Source Chapront-Touze and Chapront, Lunar Tables and Programs from 4000 B.C. to A.D. 8000 (1991).
MoonPlace geocentric_moon_medium(Ephemeris& ephemeris, const Instant& instant);

/// The same by the periodic terms of Meeus (`mterm.vsk`).
/// Source Meeus, Astronomical Algorithms, chapter "Position of the Moon".
MoonPlace geocentric_moon_low(Ephemeris& ephemeris, const Instant& instant);

/// The same places with all members for an observer.
MoonPlace moon_medium(Ephemeris& ephemeris, const Instant& instant, const Observer& observer);
MoonPlace moon_low(Ephemeris& ephemeris, const Instant& instant, const Observer& observer);

/// The terms of Meeus with a four-term nutation.
MoonPlace moon_fast(Ephemeris& ephemeris, const Instant& instant, const Observer& observer);

} // namespace halvane
