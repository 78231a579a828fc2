#pragma once

#include "ephemeris/observer.h"

namespace halvane {

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

/// The places of modcormm and modcorml without the observer: the topocentric members, the parallax and the
/// semidiameter stay 0.
MoonPlace geocentric_moon_medium(double jd);
MoonPlace geocentric_moon_low(double jd);

/// The three routines for a given observer, by name.
MoonPlace moon_medium(const Observer& observer, double jd);
MoonPlace moon_low(const Observer& observer, double jd);
MoonPlace moon_fast(const Observer& observer, double jd);

} // namespace halvane
