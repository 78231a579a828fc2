// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace halvane {

/// The folder of the user's own stored files where the program stands in a folder that the user may not write
/// to; need not be there yet. Nothing where whatever installs the program cares for that.
std::optional<std::string> users_folder();

} // namespace halvane
