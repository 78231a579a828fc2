// SPDX-License-Identifier: MIT
#include "system/zonefolder.h"

#include "system/executable.h"
#include "system/path.h"

namespace halvane {

std::string zone_folder() {
    return joined_path(folder_of(executable_path()), "zoneinfo");
}

} // namespace halvane
