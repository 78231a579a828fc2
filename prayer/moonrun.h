// SPDX-License-Identifier: MIT
#pragma once

#include "base/progress.h"
#include "ephemeris/ephemeris.h"

namespace halvane {

/// The Moon report: writes `mresults.out` for the stored period and location.
/// Reads `pref.vsk`, `date.vsk`, `loc.vsk`.
/// Returns cancelled with the rows so far and the remarks in the file.
/// Error  raises RunTimeFailure; an earlier `mresults.out` then stands.
RunOutcome write_moon_report(const TheoryPointer& theory, Progress& progress);

} // namespace halvane
