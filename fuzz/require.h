// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>

namespace halvane::fuzz {

/// Ends a fuzz target, with its input kept, when what must hold does not.
inline void require(bool holds) {
    if (!holds)
        std::abort();
}

} // namespace halvane::fuzz
