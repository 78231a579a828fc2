// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// Lets screen readers read a TextView: its text is the line of the cursor, as it moves from line to line.
/// Called once before the first view; further calls do nothing.
void install_textview_face();

} // namespace halvane
