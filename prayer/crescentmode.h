// SPDX-License-Identifier: MIT
#pragma once

#include "calendar/taggedtime.h"

namespace halvane {

/// How the crescent's calculation borrows the two day calculators: cmdcom_for_crescent and
/// cmdmoon_for_crescent show no progress, write no report and leave the events of one day in the four
/// results. Single thread; the first three change through a SwitchGuard.

extern int crescentmode;  ///< 1 while the crescent's calculation calls. Default 0.
extern double crescentjd; ///< Julian day of 0 h of its day                                   [d]
extern int summeractive;  ///< its summer hours, 0 or 1

/// Results on the local clock, hours or the reason why there are none; "----" until first set.
extern TaggedTime sunriseout;
extern TaggedTime sunsetout;
extern TaggedTime moonriseout;
extern TaggedTime moonsetout;

} // namespace halvane
