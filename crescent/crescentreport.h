// SPDX-License-Identifier: MIT
#pragma once

#include "crescent/circumstances.h"
#include "report/report.h"

#include <string>

namespace halvane {

/// Name, year and " AH" of a date's Hijri month, in English.
std::string hijri_caption(const HijriDate& date);

/// The whole report of a crescent. The run's location and preferences stand in its head.
void write_crescent(Report& report, const CrescentRun& run, const Circumstances& circumstances);

/// The report of a day on which an event of the Sun or the Moon is missing.
void write_no_crescent(Report& report);

/// The crescent report of a run: writes `visib.out`.
/// In,out events  as crescent_circumstances
/// Returns false when it is the short one.
/// Error  raises RunTimeFailure; an earlier `visib.out` then stands.
bool write_crescent_report(const TheoryPointer& theory, const CrescentRun& run,
                           const Conjunction& conjunction, DayEvents& events);

} // namespace halvane
