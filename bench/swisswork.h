// SPDX-License-Identifier: MIT
#pragma once

#include "tools/measuring/swissephemeris.h"

namespace halvane::bench {

/// The work of the engine's routines, done by the Swiss Ephemeris as its manual tells, at one site.
class SwissWork {
public:
    /// Longitude, latitude [deg, east and north positive], height [m].
    SwissWork(double longitude, double latitude, double height);

    /// Every quantity that the engine's routine gives with modaltazm: ecliptic and equatorial place,
    /// geocentric and topocentric, altitude and azimuth. Returns the altitude [deg]
    double place(swiss::Body body, double tt) const;

    /// Sunrise, sunset, dawn and dusk at -18 deg, transit of the day that begins at `ut`.
    void sun_day(double ut) const;

    /// Moonrise, transit and moonset.
    void moon_day(double ut) const;

    /// Instant at which the Moon's elongation is `angle` [deg], by the speeds of both bodies from a time
    /// within some days of it, to a quarter of a second. Both dynamical time                             [d]
    double phase(double tt, double angle) const;

private:
    double event(int body, int kind, double ut) const;
    double site_[3];
};

/// Topocentric ecliptic place of the Moon for any site at sea level. Returns the longitude       [deg]
double swiss_moon(double longitude, double latitude, double tt);

} // namespace halvane::bench
