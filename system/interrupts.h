// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// From now on the first interrupt (Ctrl-C) only shows in `interrupted`; a second one ends a program that
/// does not come to that.
void take_interrupts();

/// Whether an interrupt has come since.
bool interrupted();

} // namespace halvane
