// SPDX-License-Identifier: MIT
#include "system/usersfolder.h"

namespace halvane {

std::optional<std::string> users_folder() {
    return std::nullopt; // the starters of the package do
}

} // namespace halvane
