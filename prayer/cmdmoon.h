#pragma once

#include "app/report/progress.h"

namespace halvane {

/// The Moon report: writes `mresults.out` for the stored period and location.
/// Reads `pref.vsk`, `date.vsk`, `loc.vsk`; runs with `tdtinput` 0.
/// Returns cancelled with the rows so far and the remarks in the file.
/// Error  raises RunTimeFailure; an earlier `mresults.out` then stands.
RunOutcome cmdmoon(Progress& progress);

/// The Moon's rise and set of the day `crescentjd` with `summeractive` summer hours: fills `moonriseout` and
/// `moonsetout`.
void cmdmoon_for_crescent();

} // namespace halvane
