// SPDX-License-Identifier: MIT
#pragma once

#include "platform/windows/linkfields.h"

#include <string>

namespace halvane {

/// The user's folder of what starts with the session; made where it is missing.
/// Error  raises std::system_error when the system does not tell it.
std::string startup_folder();

/// Writes the shortcut into `folder` by the shell, over what has its name.
/// Error  raises std::system_error.
void write_shortcut(const std::string& folder, const LinkFields& link);

} // namespace halvane
