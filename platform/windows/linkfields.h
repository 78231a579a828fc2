// SPDX-License-Identifier: MIT
#pragma once

#include "platform/platform.h"

#include <string>

namespace halvane {

/// What a shortcut file of Windows holds, paths by the system's own separator.
struct LinkFields {
    std::string file_name; ///< "Halvane.lnk"
    std::string target;
    std::string working_folder;
    int show_command = 1;
    std::string icon_file;
    int icon_number = 0; ///< among the icons of icon_file
};

/// Source  [MS-SHLLINK] 2.1, ShowCommand: 3 maximised, 7 minimised; any other one is 1, as the program opens
///         by itself.
LinkFields link_fields(const Shortcut& shortcut);

} // namespace halvane
