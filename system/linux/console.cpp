// SPDX-License-Identifier: MIT
#include "system/console.h"

#include <unistd.h>

namespace halvane {

bool errors_are_on_a_terminal() {
    return ::isatty(STDERR_FILENO) == 1;
}

void open_starters_terminal() {}

} // namespace halvane
