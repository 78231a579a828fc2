// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace halvane::swiss {

/// The Swiss Ephemeris library with its data files: apparent places of an ephemeris that shares nothing with
/// this engine. Both sides of a comparison use the same Delta T, that of moddeltat.

enum class Body { sun, moon };

/// Why nothing can be computed, with the remedy; empty when the data files are in place.
std::string unavailable();

/// Apparent place of date.
struct Place {
    double longitude = 0;       ///< ecliptic                                                  [deg]
    double latitude = 0;        ///< ecliptic                                                  [deg]
    double right_ascension = 0; ///<                                                           [deg]
    double declination = 0;     ///<                                                           [deg]
    double distance = 0;        ///< true, without light time; Sun [AU], Moon [km]
};

/// In     tt  dynamical time                                                                 [d]
/// Error  raises std::runtime_error when the data files do not answer.
Place geocentric(Body body, double tt);

/// Seen from a place: longitude, latitude [deg], height [m].
Place topocentric(Body body, double tt, double longitude, double latitude, double height);

struct Orientation {
    double nutation_longitude = 0; ///< [deg]
    double nutation_obliquity = 0; ///< [deg]
    double true_obliquity = 0;     ///< [deg]
};
Orientation orientation(double tt);

/// Apparent sidereal time at Greenwich                                                       [deg]
double sidereal_time(double ut);

/// Dynamical time of a UT1, and the reverse                                                  [d]
double dynamical_time(double ut);
double universal_time(double tt);

/// Airless altitude and azimuth (north 0, east 90) of the geocentric place                   [deg]
struct Horizontal {
    double altitude = 0;
    double azimuth = 0;
};
Horizontal horizontal(const Place& place, double ut, double longitude, double latitude);

} // namespace halvane::swiss
