// SPDX-License-Identifier: MIT
#include "prayer/prayertexts.h"

namespace halvane {

PrayerTexts texts_of(const PrayerTimes& times, int precision) {
    const auto text = [precision](const TaggedTime& time) { return text_of(time, precision); };
    return {text(times.fajer), text(times.shuroq),  text(times.dhohur),
            text(times.aser),  text(times.maghreb), text(times.isha)};
}

} // namespace halvane
