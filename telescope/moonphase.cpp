// SPDX-License-Identifier: MIT
#include "telescope/moonphase.h"

#include "base/numberformat.h"
#include "ephemeris/modgeneral.h"

#include <cmath>
#include <string>

namespace halvane {
namespace {

/// The lit part as it is shown, in tenths of a per cent.
long shown_tenths(const MoonPhase& phase) {
    return std::lround(phase.fraction * 1000);
}

TwinWords lit_words(const MoonPhase& phase) {
    const TwinText name = phase_name(phase);
    const std::string part = format_number(static_cast<double>(shown_tenths(phase)) / 10, "0.0");
    return {std::string(name.english) + ", " + part + " % lit",
            std::string(name.arabic) + "، المضاء منه " + part + " %"};
}

TwinWords limb_words(const MoonPhase& phase) {
    const std::string angle = plain_number(rev360(round_half_even(phase.limb_angle))) + "°";
    return {"bright limb at " + angle + " from north", "الحافة المضيئة عند " + angle + " من الشمال"};
}

} // namespace

TwinText phase_name(const MoonPhase& phase) {
    const long shown = shown_tenths(phase);
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

TwinWords phase_words(const MoonPhase& phase, char separator) {
    const TwinWords lit = lit_words(phase);
    const TwinWords limb = limb_words(phase);
    return {lit.english + "," + separator + limb.english, lit.arabic + "،" + separator + limb.arabic};
}

} // namespace halvane
