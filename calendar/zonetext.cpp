// SPDX-License-Identifier: MIT
#include "calendar/zonetext.h"

#include <cmath>

namespace halvane {

std::string zone_text(double hours) {
    constexpr long minutes_per_hour = 60;
    const long minutes = std::lround(std::fabs(hours) * minutes_per_hour);
    const long part = minutes % minutes_per_hour;
    std::string text = hours < 0 && minutes != 0 ? "UTC-" : "UTC+";
    text += std::to_string(minutes / minutes_per_hour);
    if (part != 0)
        text += (part < 10 ? ":0" : ":") + std::to_string(part);
    return text;
}

} // namespace halvane
