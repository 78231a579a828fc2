// SPDX-License-Identifier: MIT
#include "calendar/modctim.h"

#include "calendar/shownclock.h"

namespace halvane {

std::string modctim(int precision, double hours) {
    return text_of(shown_clock(precision, hours));
}

void modctim(int precision, double hours, std::string& text) {
    text = modctim(precision, hours);
}

} // namespace halvane
