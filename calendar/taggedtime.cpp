// SPDX-License-Identifier: MIT
#include "calendar/taggedtime.h"

#include "calendar/modctim.h"

namespace halvane {

const char* text_of(NoEvent reason) {
    switch (reason) {
    case NoEvent::up:
        return "Up";
    case NoEvent::down:
        return "Down";
    case NoEvent::bright:
        return "Bright";
    case NoEvent::dark:
        return "Dark";
    case NoEvent::none:
        break;
    }
    return "----";
}

std::string text_of(const TaggedTime& time, int precision) {
    const double* hours = hours_of(time);
    return hours != nullptr ? modctim(precision, *hours) : text_of(std::get<NoEvent>(time));
}

} // namespace halvane
