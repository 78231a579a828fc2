// SPDX-License-Identifier: MIT
#pragma once

#include "base/machinetime.h"
#include "ephemeris/ephemeris.h"
#include "report/run.h"

namespace halvane {

/// The six times of the main panel for a date, a line each: for a terminal, without a report of its own. No
/// alternative method. Reads `pref.vsk`, `date.vsk`, `loc.vsk`.
/// In     theory  with `term.vsk` and `mterm.vsk`
RunPointer today_run(const TheoryPointer& theory, const MachineTime& today);

} // namespace halvane
