// SPDX-License-Identifier: MIT
#pragma once

#include "ephemeris/moon.h"
#include "ephemeris/orientation.h"

namespace halvane {

/// The steps that the routines for the Moon share.

/// Geocentric ecliptic place: deg, deg, km.
struct EclipticMoon {
    double longitude;
    double latitude;
    double distance;
};

/// The place by the periodic terms of Meeus, without nutation; `days` of dynamical time from 2000.
EclipticMoon periodic_moon(Ephemeris& ephemeris, double days);

/// The place with its geocentric ecliptic members only.
MoonPlace ecliptic_moon(const EclipticMoon& moon);

/// The geocentric members of a place from the ecliptic one, its longitude with nutation.
MoonPlace geocentric_moon(const SkyFrame& frame, const EclipticMoon& moon);

/// Fills the members that depend on the observer, and the parallax and the semidiameter.
void add_topocentric(const Observer& observer, const SkyFrame& frame, MoonPlace& moon);

} // namespace halvane
