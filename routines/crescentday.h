// SPDX-License-Identifier: MIT
#pragma once

#include "events/dayevents.h"
#include "stored/visib.h"

namespace halvane {

/// What the crescent panel and the map hand to each other, whichever of them are open.
extern double conjunctionstart;   ///< conjunction found last, dynamical time; where a map opens          [d]
extern CrescentKind crescentkind; ///< of the map that opens next; the button of the map sets it

/// How the two day calculators serve a crescent: `cmdcom` and `cmdmoon` with `crescentmode` 1 show no
/// progress, write no report and leave the events of one day in the four results. Single thread; the first
/// three change through a SwitchGuard.

extern int crescentmode;  ///< 1 while a crescent's calculation calls. Default 0.
extern double crescentjd; ///< Julian day of 0 h of its day                                   [d]
extern int summeractive;  ///< its summer hours, 0 or 1

/// The events of the crescent's day that was calculated last, by their names and as one.
extern DayEvents crescentevents;
inline constinit TaggedTime& sunriseout = crescentevents.sunrise;
inline constinit TaggedTime& sunsetout = crescentevents.sunset;
inline constinit TaggedTime& moonriseout = crescentevents.moonrise;
inline constinit TaggedTime& moonsetout = crescentevents.moonset;

/// `cmdcom` for the day `crescentjd` with `summeractive` summer hours: fills `sunriseout` and `sunsetout`,
/// without city offset and added minutes. `sunriseout` keeps what it held when the Sun stays up or down.
/// Reads `pref.vsk` and `loc.vsk`.
void cmdcom_for_crescent();

/// `cmdmoon` for that day: fills `moonriseout` and `moonsetout` in the same way.
void cmdmoon_for_crescent();

} // namespace halvane
