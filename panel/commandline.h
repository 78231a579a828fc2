// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace halvane {

/// Answers a question that is asked on the terminal (--help, -h, --version) before a display is looked for.
/// In     name  of the program
///        help  what it is and does, one paragraph with its line ends
/// Returns the exit status; nothing when the words ask for no answer.
std::optional<int> answer_on_terminal(int count, const char* const* words, const char* name,
                                      const char* help);

} // namespace halvane
