// SPDX-License-Identifier: MIT
#pragma once

#include "prayer/prayerday.h"

#include <string>

namespace halvane {

/// The six times as they are shown: clock texts or "----", "Up", "Down", "Bright", "Dark".
struct PrayerTexts {
    std::string fajer;
    std::string shuroq;
    std::string dhohur;
    std::string aser;
    std::string maghreb;
    std::string isha;
};

/// In     precision  of the clock texts, as modctim takes it
PrayerTexts texts_of(const PrayerTimes& times, int precision);

} // namespace halvane
