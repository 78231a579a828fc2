// SPDX-License-Identifier: MIT
#pragma once

#include "ephemeris/coordinates.h"
#include "ephemeris/ephemeris.h"
#include "ephemeris/moon.h"
#include "ephemeris/sun.h"

namespace halvane {

/// Parts of the fast places for searches that need no more.
FastPlace sun_fast_place(Ephemeris& ephemeris, const Instant& instant);
FastPlace moon_fast_place(Ephemeris& ephemeris, const Instant& instant);
FastPlace fast_place(Ephemeris& ephemeris, Body body, const Instant& instant);

/// The fast places whose geocentric right ascension and declination stay 0.
SunPlace topocentric_sun_fast(Ephemeris& ephemeris, const Instant& instant, const Observer& observer);
MoonPlace topocentric_moon_fast(Ephemeris& ephemeris, const Instant& instant, const Observer& observer);

/// The ecliptic places.
GeocentricPlace sun_fast_ecliptic(Ephemeris& ephemeris, const Instant& instant);
GeocentricPlace moon_fast_ecliptic(Ephemeris& ephemeris, const Instant& instant);

/// Topocentric ecliptic longitudes, 0 to 360                                                  [deg]
LongitudePair fast_longitudes(Ephemeris& ephemeris, const Instant& instant, const Observer& observer);

/// What the interpolated functions stand for, `days` of dynamical time from 2000: the fast Sun's longitude
/// [deg], radius vector [AU], obliquity [deg] and nutation in longitude [deg]; the Moon's longitude, latitude
/// [deg] and distance [km] by the periodic terms, without nutation.
InterpolatedSeries::Values fast_sun_values(const Theory& theory, double days);
InterpolatedSeries::Values periodic_moon_values(const Theory& theory, double days);

} // namespace halvane
