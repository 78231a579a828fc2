// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// Whether a person reads standard error on a terminal, which takes the usual control sequences.
bool errors_are_on_a_terminal();

} // namespace halvane
