// SPDX-License-Identifier: MIT
#pragma once

#include "ephemeris/ephemeris.h"
#include "report/run.h"
#include "stored/tele.h"

namespace halvane {

/// The read-outs of the telescope panel, a line each: for a terminal, without a report of its own. The run is
/// refused when the Moon stands too low (see moon_below_horizon).
/// In     theory  with `term.vsk`, `mterm.vsk` and `elp.vsk`
/// Reads `loc.vsk` and `pref.vsk`.
RunPointer telescope_run(const TheoryPointer& theory, const TelescopeSettings& settings);

} // namespace halvane
