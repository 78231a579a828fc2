// SPDX-License-Identifier: MIT
#include "system/zonefolder.h"

namespace halvane {

std::string zone_folder() {
    return "/usr/share/zoneinfo";
}

} // namespace halvane
