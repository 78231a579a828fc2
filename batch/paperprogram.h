// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// Ends the running program and starts halvane-paper of its folder in the same process, with the same words
/// of the command line, streams and present folder. In     words  as `main` gets them Error  raises
/// RunTimeFailure when that program is missing or cannot be started
[[noreturn]] void become_paper_program(char** words);

} // namespace halvane
