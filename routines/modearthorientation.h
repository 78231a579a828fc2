// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// Nutation and obliquity of date.
/// In     jd  UT1, or TDT with `tdtinput` 1                                             [d]
/// Out    nutation_longitude, nutation_obliquity, true_obliquity                        [deg]
/// 63 terms of the IAU 1980 theory; obliquity by Laskar's polynomial, 10 000 years either side of 2000.
/// Reads the switch `tdtinput`; needs `mterm.vsk` loaded. The results of the last `jd` are kept.
/// Accuracy  nutation 0.02", obliquity 0.08" from 1900 to 2100 (docs/accuracy.md).
/// Source Meeus, Astronomical Algorithms, chapter "Nutation and the Obliquity of the Ecliptic".
void modobliquity(double jd, double& nutation_longitude, double& nutation_obliquity, double& true_obliquity);

/// The same with four terms of the nutation; mind the other order of the outputs. Honours `tdtinput`.
void modobliquitylow(double jd, double& nutation_obliquity, double& nutation_longitude,
                     double& true_obliquity);

/// modobliquitylow for a `jd` that is UT1 whatever `tdtinput` holds.
void modobliquityvlow(double jd, double& nutation_obliquity, double& nutation_longitude,
                      double& true_obliquity);

/// Apparent sidereal time at Greenwich.
/// In     jd  UT1, or TDT with `tdtinput` 1                                             [d]
/// Out    sidereal_time  0 to 360                                                       [deg]
/// Source Meeus, Astronomical Algorithms, chapter "Sidereal Time at Greenwich".
void modsiderial(double jd, double& sidereal_time);

/// Apparent sidereal time at Greenwich with the four-term nutation; `jd` is UT1 always.
void modsideriallow(double jd, double& sidereal_time);

/// Local apparent sidereal time; computes no series.
/// In     jd         UT1, or TDT with `tdtinput` 1                                      [d]
///        longitude  observer's, east positive                                          [deg]
///        obliquity  true                                                               [rad]
///        nutation   in longitude                                                       [deg]
/// Out    sidereal_time  0 to 360                                                       [deg]
void modlasttdt(double jd, double longitude, double obliquity, double nutation, double& sidereal_time);

/// Daily variation of the Sun's longitude in a fixed frame, for the aberration.
/// In     tau        Julian millennia of dynamical time from 2000
/// Out    variation  [deg/d]
/// Source Meeus, Astronomical Algorithms, chapter "Solar Coordinates".
void moddabb(double tau, double& variation);

} // namespace halvane
