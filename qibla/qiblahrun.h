// SPDX-License-Identifier: MIT
#pragma once

#include "base/progress.h"
#include "ephemeris/ephemeris.h"
#include "qibla/qiblareport.h"

namespace halvane {

/// Direction of the Qiblah at the current location. Reads `loc.vsk`.
float stored_qiblah_direction();

/// The Qiblah report: for each day of the stored period, when the Sun or its shadow stands in the direction
/// of the Qiblah, into `results.out`.
/// In     direction  of the Qiblah, as the panel shows it                                       [deg]
/// Reads `pref.vsk`, `date.vsk`, `loc.vsk`; needs `term.vsk` and `mterm.vsk`.
/// Returns cancelled with the rows so far and the remarks in the file.
/// Error  raises RunTimeFailure; an earlier `results.out` then stands.
RunOutcome write_qiblah_report(const TheoryPointer& theory, Progress& progress, float direction,
                               QiblahMark mark);

} // namespace halvane
