// SPDX-License-Identifier: MIT
#pragma once

#include "ephemeris/interpolation.h"
#include "ephemeris/orientation.h"
#include "ephemeris/sun.h"

namespace halvane {

/// The steps that the routines for the Sun share.

/// Mean longitude of the Sun, not reduced, `u` in Julian millennia from 2000                    [deg]
double sun_mean_longitude(double u);

/// Heliocentric spherical coordinates of the Earth: rad, rad, AU.
struct EarthPlace {
    double longitude;
    double latitude;
    double radius;
};

/// Longitude, not reduced [deg], latitude [deg] and radius [AU] of the Earth by the medium series; `days` of
/// dynamical time from 2000.
InterpolatedSeries::Values earth_medium_values(const Theory& theory, double days);

/// Apparent geocentric place from the Earth's heliocentric one, by the FK5 correction, the aberration [deg]
/// and the nutation; with the equation of time.
SunPlace apparent_sun(const Orientation& orientation, const EarthPlace& earth, double aberration);

/// Daily variation of the Sun's longitude in a fixed frame, for the aberration; `tau` Julian millennia of
/// dynamical time from 2000                                                                     [deg/d]
/// Source Meeus, Astronomical Algorithms, chapter "Solar Coordinates".
double daily_variation(double tau);

/// Fills the topocentric places from the geocentric ecliptic one.
void add_topocentric(const Observer& observer, const SkyFrame& frame, SunPlace& sun);

/// 4 E minutes, from E in degrees folded to within 6.
/// Error  raises RunTimeFailure for a value that is not finite.
double equation_of_time(double e);

/// What the low-precision formulae give before any nutation of their own.
struct LowSun {
    double mean_longitude; ///< [deg]
    double true_longitude; ///< [deg]
    double radius;         ///< [AU]
};
/// `t` in Julian centuries of dynamical time from 2000.
LowSun low_sun(double t);

/// Apparent longitude of the low-precision formulae; `node` of the Moon's orbit                 [deg]
double low_apparent_longitude(double true_longitude, double node);

} // namespace halvane
