// SPDX-License-Identifier: MIT
#pragma once

#include "base/progress.h"
#include "ephemeris/ephemeris.h"
#include "phases/phaseyear.h"

namespace halvane {

/// The table of a year's phases: writes `results.out`.
/// Returns cancelled with the rows so far and the remarks in the file.
/// Returns refused, and writes nothing, for a run of refused_phase_year or refused_delta_t.
/// Error  raises RunTimeFailure; an earlier `results.out` then stands.
RunOutcome write_phase_report(const TheoryPointer& theory, const PhaseYear& run, Progress& progress);

} // namespace halvane
