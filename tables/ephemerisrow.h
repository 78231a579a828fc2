// SPDX-License-Identifier: MIT
#pragma once

#include "ephemeris/ephemeris.h"

namespace halvane {

/// The bodies of the table, by their number in `coor.vsk`.
enum class TableBody { sun = 0, moon = 1 };

/// The quantities of one row. Angles are apparent, airless, of the equator and ecliptic of date.
struct EphemerisRow {
    double right_ascension = 0; ///< [deg]
    double declination = 0;     ///< [deg]
    double altitude = 0;        ///< [deg]
    double azimuth = 0;         ///< 0 north, 90 east                                         [deg]
    double latitude = 0;        ///< ecliptic                                                 [deg]
    double longitude = 0;       ///< ecliptic                                                 [deg]
    double distance = 0;        ///< between the centres of the Earth and the body            [km]
    double semidiameter = 0;    ///< [deg]
    double parallax = 0;        ///< horizontal                                               [deg]
    double delta_t = 0;         ///< [s]
};

/// The Sun (complete VSOP87) or the Moon (ELP-2000/85) at one instant.
/// In     geocentric  false: places and the Moon's semi-diameter are the observer's; the Sun's semi-diameter,
///                    the distance and the parallax stay geocentric
/// Needs `mterm.vsk` and `termfull.vsk` or `elp.vsk`.
/// Accuracy  see docs/accuracy.md.
EphemerisRow ephemeris_row(Ephemeris& ephemeris, const Instant& instant, const Observer& observer,
                           TableBody body, bool geocentric);

} // namespace halvane
