// SPDX-License-Identifier: MIT
#pragma once

#include "base/machinetime.h"
#include "base/twintext.h"
#include "ephemeris/ephemeris.h"
#include "prayer/prayertexts.h"
#include "report/run.h"

namespace halvane {

/// The prayer report, `results.out`, of the stored period and location. Reads `pref.vsk`, `date.vsk`,
/// `loc.vsk`. The run is refused beyond latitude 65 when the alternative method would be needed, with the
/// rows so far and no remarks (see high_latitude_message).
/// In     today  the machine's date, for a period that follows it
RunPointer prayer_run(const TheoryPointer& theory, const MachineTime& today);

/// The six times of one day as the main panel shows them. Reads `pref.vsk`, `date.vsk`, `loc.vsk`; no
/// alternative method.
/// In     todayjd  0 h of the machine's date                                                    [d]
PrayerTexts today_prayer_times(const TheoryPointer& theory, double todayjd);

/// What the user is told when the report is refused.
extern const TwinMessage high_latitude_message;

} // namespace halvane
