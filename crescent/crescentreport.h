// SPDX-License-Identifier: MIT
#pragma once

#include "crescent/circumstances.h"
#include "report/report.h"

namespace halvane {

/// The whole report of a crescent.
void write_crescent(Report& report, const Circumstances& circumstances);

/// The report of a day on which an event of the Sun or the Moon is missing.
void write_no_crescent(Report& report);

/// The crescent report of the stored choices: writes `visib.out`.
/// In,out events  as crescent_circumstances
/// Returns false when it is the short one.
/// Error  raises RunTimeFailure; an earlier `visib.out` then stands.
bool write_crescent_report(const TheoryPointer& theory, const CrescentSettings& settings,
                           const Conjunction& conjunction, DayEvents& events);

} // namespace halvane
