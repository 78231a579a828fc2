// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// Makes the fonts of the folder "fonts" beside the executable known to this program, where there is one, and
/// puts them in place of a desktop's font for panels that is not there.
/// Called once, after Qt's application is made.
void use_delivered_fonts();

} // namespace halvane
