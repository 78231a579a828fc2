// SPDX-License-Identifier: MIT
#pragma once

#include "ephemeris/ephemeris.h"
#include "ephemeris/sun.h"

namespace halvane {

/// The clock on which a transit is looked for.
struct TransitClock {
    double ahead = 0;            ///< of Universal Time                                             [h]
    double noon = 12;            ///< its hours when the mean Sun crosses the zone's meridian       [h]
    double meridian_minutes = 0; ///< the zone's meridian less the observer's                       [min]
};

/// The Sun on the meridian.
struct SunTransit {
    double hours;    ///< on the clock from its midnight; may lie outside 0 to 24                   [h]
    Instant instant; ///< within a quarter of a second of it
    SunPlace sun;    ///< then; geocentric
};

/// The transit of a civil date's Sun, from the low series on by the medium one until a step is below a
/// quarter of a second.
/// In     jd  0 h of the civil date                                                                [d]
/// Error  raises RunTimeFailure when the search does not end.
/// Accuracy  1 s from 1900 to 2100 (docs/accuracy.md).
/// Source Meeus, Astronomical Algorithms, chapter "Equation of Time".
SunTransit find_sun_transit(Ephemeris& ephemeris, double jd, const TransitClock& clock);

} // namespace halvane
