// SPDX-License-Identifier: MIT
#pragma once

#include "events/riseset.h"

namespace halvane {

/// Fast rise and set for any place: no refraction setting, no height, no "Up" and "Down".
/// In     date  0 h of the civil date, without a zone
/// Returns hours on the clock of the zone longitude / 15, or "----"
/// Accuracy  about half a minute (docs/accuracy.md).
/// Source Meeus, Astronomical Algorithms, chapter "Rising, Transit, and Setting".
RiseSet low_rise_set(Ephemeris& ephemeris, Body body, const Instant& date, const Observer& observer);

/// One of the two events.
enum class LowEvent { rise, set };
TaggedTime low_event(Ephemeris& ephemeris, Body body, const Instant& date, const Observer& observer,
                     LowEvent event);

/// One correction of the fast search towards the altitude `h0`.
/// In     midnight  what the hours count from; h0 [deg]
double low_corrected_hours(Ephemeris& ephemeris, Body body, const Instant& midnight, const Observer& observer,
                           double hours, double h0);

/// Whole hours of the zone in whose middle a longitude lies, half to even                    [deg -> h]
double zone_of_longitude(double longitude);

} // namespace halvane
