// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// Geocentric place of an observer.
/// In     latitude [deg], height [m]
/// Out    rho_sine, rho_cosine  rho sin phi', rho cos phi', in equatorial radii
/// Source Meeus, Astronomical Algorithms, chapter "The Earth's Globe" (IAU 1976 ellipsoid).
void modearthglobe(double latitude, double height, double& rho_sine, double& rho_cosine);

/// Topocentric ecliptic place of the Sun or the Moon for the observer of `loc.vsk`.
/// In     pi_value                 the caller's pi
///        jd                       UT1, or TDT with `tdtinput` 1                         [d]
///        obliquity, nutation      true obliquity, nutation in longitude                 [deg]
///        longitude, latitude      geocentric, apparent                                  [deg]
///        distance                 body 'S': [AU]; any other, the Moon: [km]
/// Out    topocentric_longitude (0 to 360), topocentric_latitude                         [deg]
///        semidiameter, topocentric_semidiameter, parallax (horizontal)                  [deg]
/// Reads `loc.vsk` and the switch `tdtinput`.
/// Source Meeus, Astronomical Algorithms, chapter "Correction for Parallax".
void modecltopo(double pi_value, double jd, double obliquity, double nutation, double longitude,
                double latitude, double distance, double& topocentric_longitude, double& topocentric_latitude,
                double& semidiameter, double& topocentric_semidiameter, double& parallax, char body);

/// The same for an observer at sea level given in arguments; reads no file.
void modecltopolow(double observer_longitude, double observer_latitude, double pi_value, double jd,
                   double obliquity, double nutation, double longitude, double latitude, double distance,
                   double& topocentric_longitude, double& topocentric_latitude, double& semidiameter,
                   double& topocentric_semidiameter, double& parallax, char body);

/// Ecliptic to equatorial.
/// In     pi_value, jd (not used), obliquity, longitude, latitude                       [deg]
/// Out    right_ascension (0 to 360), declination                                       [deg]
void modeclequa(double pi_value, double jd, double obliquity, double longitude, double latitude,
                double& right_ascension, double& declination);

/// Equatorial to horizontal for the observer of `loc.vsk`, airless.
/// In     jd                            UT1, or TDT with `tdtinput` 1                   [d]
///        right_ascension, declination                                                  [deg]
/// Out    altitude; azimuth, 0 north, 90 east                                           [deg]
/// Reads `loc.vsk` and the switch `tdtinput`.
void modaltazm(double jd, double right_ascension, double declination, double& altitude, double& azimuth);

/// Horizontal to equatorial for the observer of `loc.vsk`; the reverse of modaltazm.
void modaltazmequa(double jd, double altitude, double azimuth, double& right_ascension, double& declination);

/// Altitude raised by refraction in standard air.
/// In     altitude   airless, above about -4.4                                          [deg]
/// Out    corrected                                                                     [deg]
/// Source Bennett, Journal of Navigation 35, 255 (1982).
void modrefraction(double altitude, double& corrected);

/// Precession of a place of the date to J2000.
/// In     jd                             date of the place                              [d]
///        right_ascension, declination                                                  [deg]
/// Out    right_ascension_2000 (0 to 360), declination_2000                             [deg]
/// Source Meeus, Astronomical Algorithms, chapter "Precession" (IAU 1976).
void modequinox2000(double jd, double right_ascension, double declination, double& right_ascension_2000,
                    double& declination_2000);

} // namespace halvane
