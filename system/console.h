// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// Whether a person reads standard error on a terminal, which takes the usual control sequences.
bool errors_are_on_a_terminal();

/// Lets a program with windows write to the terminal that it was started from, where the system does not do
/// so by itself.
void open_starters_terminal();

} // namespace halvane
