// SPDX-License-Identifier: MIT
#pragma once

#include "ephemeris/observer.h"
#include "ephemeris/orientation.h"

namespace halvane {

/// The sizes of the bodies, as every parallax and semidiameter takes them.
inline constexpr double earth_radius_km = 6378.137;              ///< of the equator
inline constexpr double moon_over_earth_radius = 0.2725076;      ///<
inline constexpr double sun_parallax_at_1_au = 0.00244277777778; ///< horizontal              [deg]
inline constexpr double sun_semidiameter_at_1_au = 0.266563889;  ///<                         [deg]

/// Radius to an observer from the Earth's centre, in equatorial radii.
struct GeocentricRadius {
    double sine = 0;   ///< rho sin phi'
    double cosine = 0; ///< rho cos phi'
};

/// In     latitude [deg], height [m]
/// Source Meeus, Astronomical Algorithms, chapter "The Earth's Globe" (IAU 1976 ellipsoid).
GeocentricRadius geocentric_radius(double latitude, double height);

/// Ecliptic to equatorial.
/// In     frame or obliquity, longitude, latitude                                       [deg]
/// Out    right_ascension (0 to 360), declination                                       [deg]
void equatorial_of(const SkyFrame& frame, double longitude, double latitude, double& right_ascension,
                   double& declination);
void equatorial_of(double obliquity, double longitude, double latitude, double& right_ascension,
                   double& declination);

/// Equatorial to horizontal, airless.
/// In     right_ascension, declination                                                  [deg]
/// Out    altitude; azimuth, 0 north, 90 east                                           [deg]
void altazm_of(Ephemeris& ephemeris, const Instant& instant, const Observer& observer, double right_ascension,
               double declination, double& altitude, double& azimuth);

/// The altitude of altazm_of alone.
double altitude_of(Ephemeris& ephemeris, const Instant& instant, const Observer& observer,
                   double right_ascension, double declination);

/// Horizontal to equatorial; the reverse of altazm_of.
void equatorial_of_altazm(Ephemeris& ephemeris, const Instant& instant, const Observer& observer,
                          double altitude, double azimuth, double& right_ascension, double& declination);

/// Altitude raised by refraction in standard air                                        [deg]
/// In     altitude   airless, above about -4.4                                          [deg]
/// Source Bennett, Journal of Navigation 35, 255 (1982).
double refracted(double altitude);

/// Precession of a place of the date to J2000.
/// In     instant                        date of the place
///        right_ascension, declination                                                  [deg]
/// Out    right_ascension_2000 (0 to 360), declination_2000                             [deg]
/// Source Meeus, Astronomical Algorithms, chapter "Precession" (IAU 1976).
void precess_to_j2000(const Instant& instant, double right_ascension, double declination,
                      double& right_ascension_2000, double& declination_2000);

/// Local hour angle of an equatorial place from a sidereal time at Greenwich, 0 to below 360  [deg]
double local_hour_angle(double sidereal_time, double longitude, double right_ascension);

/// A direction as it is seen from the Earth's surface                                    [deg]
struct TopocentricDirection {
    double longitude = 0; ///< ecliptic, 0 to 360
    double latitude = 0;  ///< ecliptic
};

/// The place with sizes                                                                  [deg]
struct TopocentricPlace : TopocentricDirection {
    double semidiameter = 0;
    double topocentric_semidiameter = 0;
    double parallax = 0; ///< horizontal
};

/// Topocentric ecliptic place of the Sun or the Moon.
/// In     longitude, latitude  geocentric, apparent                                      [deg]
///        distance             body 'S': [AU]; any other, the Moon: [km]
/// Source Meeus, Astronomical Algorithms, chapter "Correction for Parallax".
TopocentricPlace topocentric_place(const Observer& observer, const SkyFrame& frame, double longitude,
                                   double latitude, double distance, char body);

/// The direction of topocentric_place alone.
TopocentricDirection topocentric_direction(const Observer& observer, const SkyFrame& frame, double longitude,
                                           double latitude, double distance, char body);

/// A geocentric ecliptic place in the frame of its instant.
struct GeocentricPlace {
    double longitude = 0; ///< apparent                                                   [deg]
    double latitude = 0;  ///<                                                            [deg]
    double distance = 0;  ///< Sun [AU], Moon [km]
    SkyFrame frame;
};

/// The longitudes that topocentric_place gives the Sun and the Moon of one instant, computed side by side
/// [deg]
struct LongitudePair {
    double sun, moon;
};
LongitudePair topocentric_longitudes(const Observer& observer, const GeocentricPlace& sun,
                                     const GeocentricPlace& moon);

/// Horizontal parallax of the Moon                                                      [km -> deg]
double moon_parallax(double distance);

} // namespace halvane
