// SPDX-License-Identifier: MIT
#pragma once

#include "ephemeris/instant.h"

namespace halvane {

class Ephemeris;

/// The turning Earth at one instant, as the transformations need it.
struct SkyFrame {
    double sine_obliquity = 0;
    double cosine_obliquity = 1;
    double sidereal_time = 0; ///< apparent, at Greenwich, not reduced                       [deg]
};

/// The frame of an instant whose true obliquity and nutation in longitude are known           [deg]
SkyFrame sky_frame(const Instant& instant, double true_obliquity, double nutation_longitude);

struct LowOrientation;
SkyFrame sky_frame(const Instant& instant, const LowOrientation& orientation);

/// Nutation and obliquity of the date, with all that follows from them.
struct Orientation {
    double nutation_longitude = 0; ///< [deg]
    double nutation_obliquity = 0; ///< [deg]
    double true_obliquity = 0;     ///< [deg]
    double dynamical_days = 0;     ///< dynamical time from 2000                              [d]
    SkyFrame frame;
};

/// Nutation by its four largest terms, and the obliquity with it                            [deg]
struct LowOrientation {
    double nutation_longitude = 0;
    double nutation_obliquity = 0;
    double true_obliquity = 0;
    double sine_obliquity = 0;
    double cosine_obliquity = 1;
};

/// Apparent sidereal time at Greenwich, 0 to 360                                             [deg]
/// Source Meeus, Astronomical Algorithms, chapter "Sidereal Time at Greenwich".
double sidereal_time(Ephemeris& ephemeris, const Instant& instant);

/// The same with the four-term nutation. The fast formulae take every day number for UT1.
double low_sidereal_time(Ephemeris& ephemeris, const Instant& instant);

/// Local apparent sidereal time, 0 to 360; computes no series                                [deg]
/// In     longitude  observer's, east positive                                              [deg]
///        obliquity  true                                                                   [rad]
///        nutation   in longitude                                                           [deg]
double local_sidereal_time(const Instant& instant, double longitude, double obliquity, double nutation);

} // namespace halvane
