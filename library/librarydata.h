// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <vector>

namespace halvane::v1 {

/// Where the data files may lie, the likeliest first: the folder of the library, `share/halvane` beside that
/// folder and beside the one above it, and where the library was installed.
std::vector<std::filesystem::path> data_folders();

} // namespace halvane::v1
