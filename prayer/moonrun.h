// SPDX-License-Identifier: MIT
#pragma once

#include "base/machinetime.h"
#include "ephemeris/ephemeris.h"
#include "report/run.h"

namespace halvane {

/// The Moon report, `mresults.out`, of the stored period and location. Reads `pref.vsk`, `date.vsk`,
/// `loc.vsk`.
RunPointer moon_run(const TheoryPointer& theory, const MachineTime& today);

} // namespace halvane
