// SPDX-License-Identifier: MIT
#pragma once

#include "base/machinetime.h"
#include "ephemeris/ephemeris.h"
#include "qibla/qiblareport.h"
#include "report/run.h"

namespace halvane {

/// Direction of the Qiblah at the current location. Reads `loc.vsk`.
float stored_qiblah_direction();

/// The Qiblah report, `results.out`: for each day of the stored period, when the Sun or its shadow stands in
/// the direction of the Qiblah.
/// In     theory     with `term.vsk` and `mterm.vsk`
///        today      the machine's date, for a period that follows it
///        direction  of the Qiblah, as the panel shows it                                       [deg]
/// Reads `pref.vsk`, `date.vsk`, `loc.vsk`.
RunPointer qiblah_run(const TheoryPointer& theory, const MachineTime& today, float direction,
                      QiblahMark mark);

} // namespace halvane
