// SPDX-License-Identifier: MIT
#pragma once

#include "ephemeris/interpolation.h"
#include "ephemeris/modgeneral.h"

namespace halvane {

/// The formulae that the routines of the Earth's orientation share.

/// Mean obliquity of the ecliptic, u in units of 10 000 Julian years from 2000                  [deg]
/// Source Laskar, Astronomy and Astrophysics 157, 68 (1986).
inline double mean_obliquity(double u) {
    constexpr double coefficients[]{84381.448, -4680.93, -1.55, 1999.25, -51.38, -249.67,
                                    -39.05,    7.12,     27.87, 5.79,    2.45};
    double seconds = 0;
    for (int i = 10; i >= 0; --i)
        seconds = seconds * u + coefficients[i];
    return seconds / 3600;
}

/// Nutation by its four largest terms.
struct LowNutation {
    double longitude; ///< [deg]
    double obliquity; ///< [deg]
};

/// In     omega           longitude of the Moon's ascending node                      [rad]
///        sun, moon       mean longitudes                                             [rad]
LowNutation low_nutation(double omega, double sun, double moon);

/// Nutation in longitude, nutation in obliquity, true obliquity, by the whole theory and by four terms;
/// `days` of dynamical time from 2000                                                                  [deg]
InterpolatedSeries::Values orientation_values(const Theory& theory, double days);
InterpolatedSeries::Values low_orientation_values(const Theory& theory, double days);

/// Mean sidereal time at Greenwich, not reduced, `days` of UT1 from 2000                         [deg]
double mean_sidereal_time(double days);

} // namespace halvane
