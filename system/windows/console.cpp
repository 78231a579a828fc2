// SPDX-License-Identifier: MIT
#include "system/console.h"

#include <windows.h>

namespace halvane {

bool errors_are_on_a_terminal() {
    const HANDLE errors = ::GetStdHandle(STD_ERROR_HANDLE);
    DWORD mode = 0;
    return ::GetConsoleMode(errors, &mode) != 0 &&
           ::SetConsoleMode(errors, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

} // namespace halvane
