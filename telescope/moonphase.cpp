// SPDX-License-Identifier: MIT
#include "telescope/moonphase.h"

#include "base/numberformat.h"
#include "ephemeris/modgeneral.h"

#include <cmath>
#include <string>

namespace halvane {

TwinText phase_name(const MoonPhase& phase) {
    const long shown = std::lround(phase.fraction * 1000); // tenths of a per cent
    if (shown == 0)
        return {"New Moon", "محاق"};
    if (shown == 1000)
        return {"Full Moon", "بدر"};
    if (shown == 500)
        return phase.waxing ? TwinText{"First quarter", "تربيع أول"} : TwinText{"Last quarter", "تربيع أخير"};
    if (shown < 500)
        return phase.waxing ? TwinText{"Waxing crescent", "هلال متزايد"}
                            : TwinText{"Waning crescent", "هلال متناقص"};
    return phase.waxing ? TwinText{"Waxing gibbous", "أحدب متزايد"}
                        : TwinText{"Waning gibbous", "أحدب متناقص"};
}

TwinWords phase_words(const MoonPhase& phase) {
    constexpr double tenths_of_whole = 1000;
    const TwinText name = phase_name(phase);
    const std::string part =
        format_number(static_cast<double>(std::lround(phase.fraction * tenths_of_whole)) / 10, "0.0");
    const std::string angle = plain_number(rev360(round_half_even(phase.limb_angle)));
    return {std::string(name.english) + ", " + part + " % lit, bright limb at " + angle + "°",
            std::string(name.arabic) + "، المضاء منه " + part + " %، الحافة المضيئة عند " + angle + "°"};
}

} // namespace halvane
