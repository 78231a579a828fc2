// SPDX-License-Identifier: MIT
#pragma once

#include "calendar/moddateconv.h"
#include "ephemeris/ephemeris.h"
#include "report/run.h"
#include "stored/loc.h"
#include "stored/pref.h"

#include <optional>
#include <string>

namespace halvane {

/// What a day is told of.
struct DayAsked {
    Preferences preferences;
    Location location;
    DateNumbers date;               ///< civil
    std::optional<HijriDate> hijri; ///< of that date; nothing before the calendar begins
    std::string hijri_rule;         ///< by which it was told, in English
};

/// The times of a day for a terminal, without a report of its own: the six of the main panel, the Moon's, and
/// how much of the Moon's disc is lit at the clock's noon. No alternative method at high latitudes.
/// In     theory  with `term.vsk`, `mterm.vsk` and `elp.vsk`
RunPointer day_run(const TheoryPointer& theory, const DayAsked& asked);

/// The Sun's day for a terminal: rise, transit and set, how long it is up, how high and where it stands in
/// transit.
/// In     theory  with `term.vsk` and `mterm.vsk`
RunPointer sun_run(const TheoryPointer& theory, const DayAsked& asked);

} // namespace halvane
