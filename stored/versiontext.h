// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace halvane {

/// What a program says of itself when it is asked for its version: its name, version and commit, and in a
/// second line the program folder where that needs telling (`told_program_folder`). No line end after the
/// last one.
std::string version_text(std::string_view program);

} // namespace halvane
