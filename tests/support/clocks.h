// SPDX-License-Identifier: MIT
#pragma once

#include "calendar/shownclock.h"

#include <stdexcept>
#include <string>

namespace halvane {

/// The clock of a text "hh:mm" or "hh:mm:ss".
inline ShownClock clock_at(const std::string& text) {
    const int seconds = std::stoi(text.substr(0, 2)) * 3600 + std::stoi(text.substr(3, 2)) * 60;
    return text.size() == 8 ? ShownClock{seconds + std::stoi(text.substr(6)), true}
                            : ShownClock{seconds, false};
}

/// The time of such a text, or of "----", "Up", "Down", "Bright", "Dark".
inline TaggedTime time_at(const std::string& text) {
    for (const NoEvent reason : {NoEvent::none, NoEvent::up, NoEvent::down, NoEvent::bright, NoEvent::dark})
        if (text == text_of(reason))
            return reason;
    if (text.size() != 5 && text.size() != 8)
        throw std::invalid_argument(text);
    // The last half unit of the day is shown as its end.
    return text == "24:00" ? 24 - 1e-6 : clock_at(text).seconds / 3600.0;
}

} // namespace halvane
