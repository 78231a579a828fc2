// SPDX-License-Identifier: MIT
#pragma once

#include "crescent/circumstances.h"
#include "report/run.h"

#include <string>

namespace halvane {

/// Name, year and " AH" of a date's Hijri month, in English.
std::string hijri_caption(const HijriDate& date);

/// The crescent report, `visib.out`: one row, or none and the short report on a day on which an event of the
/// Sun or the Moon is missing. It is calculated here; its short answer when it is asked for.
/// In,out events  as crescent_circumstances
RunPointer crescent_run(const TheoryPointer& theory, const CrescentRecords& values,
                        const Conjunction& conjunction, DayEvents& events);

} // namespace halvane
