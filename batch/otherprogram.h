// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// Ends the running program and starts another one of its folder in the same process, with the same words of
/// the command line, streams and present folder.
/// In     program  its name: halvane-paper, halvane-map
///        words    as `main` gets them
/// Error  raises RunTimeFailure when that program is missing or cannot be started
[[noreturn]] void become_program(const char* program, char** words);

} // namespace halvane
