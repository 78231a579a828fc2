// SPDX-License-Identifier: MIT
#include "system/display.h"

namespace halvane {

bool has_display() {
    return true; // every session has one
}

} // namespace halvane
