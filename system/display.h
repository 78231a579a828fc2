// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// Whether there is a display to show panels on.
bool has_display();

} // namespace halvane
