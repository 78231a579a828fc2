// SPDX-License-Identifier: MIT
#include "system/zonefolder.h"

#include "system/executable.h"

#include <filesystem>

namespace halvane {

std::string zone_folder() {
    return (std::filesystem::path(executable_path()).parent_path() / "zoneinfo").string();
}

} // namespace halvane
