// SPDX-License-Identifier: MIT
#pragma once

#include "ephemeris/ephemeris.h"
#include "phases/phaseyear.h"
#include "report/run.h"

namespace halvane {

/// The table of a year's phases, `results.out`. Nothing for a year of refused_phase_year or refused_delta_t.
RunPointer phase_run(const TheoryPointer& theory, const PhaseYear& year);

} // namespace halvane
