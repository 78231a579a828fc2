// SPDX-License-Identifier: MIT
#include "system/display.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace halvane {

bool has_display() {
    constexpr std::array<const char*, 3> names{"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
    return std::any_of(names.begin(), names.end(),
                       [](const char* name) { return std::getenv(name) != nullptr; });
}

} // namespace halvane
