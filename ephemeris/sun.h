// SPDX-License-Identifier: MIT
#pragma once

#include "ephemeris/instant.h"
#include "ephemeris/observer.h"

namespace halvane {

class Ephemeris;

/// Apparent place of the Sun.
struct SunPlace {
    double right_ascension = 0;             ///< geocentric, 0 to 360                          [deg]
    double declination = 0;                 ///< geocentric                                    [deg]
    double topocentric_right_ascension = 0; ///< 0 to 360                                      [deg]
    double topocentric_declination = 0;     ///<                                               [deg]
    double longitude = 0;                   ///< ecliptic, geocentric, 0 to 360                [deg]
    double latitude = 0;                    ///< ecliptic, geocentric                          [deg]
    double topocentric_longitude = 0;       ///< ecliptic, 0 to 360                            [deg]
    double topocentric_latitude = 0;        ///< ecliptic                                      [deg]
    double radius = 0;                      ///< radius vector                                 [AU]
    double equation_of_time = 0;            ///< apparent minus mean, within 24                [min]
};

/// Apparent geocentric place of the Sun by the complete VSOP87 series; the topocentric members stay 0.
/// Needs `termfull.vsk` and `mterm.vsk`.
/// Accuracy  see docs/accuracy.md.
/// Source Bretagnon and Francou, Astronomy and Astrophysics 202, 309 (1988); reduction after Meeus,
///        Astronomical Algorithms, chapter "Solar Coordinates".
SunPlace geocentric_sun_high(Ephemeris& ephemeris, const Instant& instant);

/// The same by the 248 largest terms (`term.vsk`), with the mean aberration.
SunPlace geocentric_sun_medium(Ephemeris& ephemeris, const Instant& instant);

/// The same by the low-precision formulae of Meeus; the latitude is 0.
SunPlace geocentric_sun_low(Ephemeris& ephemeris, const Instant& instant);

/// The same places with the topocentric members for an observer.
SunPlace sun_high(Ephemeris& ephemeris, const Instant& instant, const Observer& observer);
SunPlace sun_medium(Ephemeris& ephemeris, const Instant& instant, const Observer& observer);
SunPlace sun_low(Ephemeris& ephemeris, const Instant& instant, const Observer& observer);

/// The low-precision formulae with a four-term nutation; the equation of time stays 0. They need no series,
/// and take the day number of any instant for UT1 but for the observer's sidereal time.
SunPlace sun_fast(Ephemeris& ephemeris, const Instant& instant, const Observer& observer);

} // namespace halvane
