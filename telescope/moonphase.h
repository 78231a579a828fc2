// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"

namespace halvane {

/// What the Moon's disc shows, from the Earth's centre.
struct MoonPhase {
    double fraction = 0;   ///< of the disc that is lit, 0 to 1
    bool waxing = true;    ///< east of the Sun
    double limb_angle = 0; ///< position angle of the middle of the bright limb, from north over east; 0 to
                           ///< below 360                                              [deg]
};

/// "Waxing crescent": by the lit part to a tenth of a per cent, so that a half, none and all of it have names
/// of their own only where that figure shows them.
TwinText phase_name(const MoonPhase& phase);

/// "Waxing crescent, 3.2 % lit, bright limb at 251° from north": the position angle, to the degree.
/// In     separator  behind the comma before the bright limb
TwinWords phase_words(const MoonPhase& phase, char separator = ' ');

} // namespace halvane
