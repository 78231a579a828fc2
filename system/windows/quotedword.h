// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace halvane {

/// A word of a command line as a program takes it apart again.
/// Source  Microsoft, "Parsing C command-line arguments".
std::wstring quoted_word(std::wstring_view word);

} // namespace halvane
