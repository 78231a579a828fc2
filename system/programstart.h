// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// What a program does first: a closed standard stream gives its number to no file, standard streams carry
/// bytes as they are and texts in UTF-8, a write without a reader or beyond a limit of file sizes is an error
/// and no end, and what asks the program to end (a signal, a closed window) removes the unfinished files
/// before.
void begin_program();

} // namespace halvane
