// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// Removes the unfinished files and ends the process by signal `number` as if it had not been caught.
void end_by_signal(int number);

} // namespace halvane
