// SPDX-License-Identifier: MIT
#include "prayer/crescentmode.h"

namespace halvane {

int crescentmode = 0;
double crescentjd = 0;
int summeractive = 0;
TaggedTime sunriseout = NoEvent::none;
TaggedTime sunsetout = NoEvent::none;
TaggedTime moonriseout = NoEvent::none;
TaggedTime moonsetout = NoEvent::none;

} // namespace halvane
