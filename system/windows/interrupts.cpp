// SPDX-License-Identifier: MIT
#include "system/interrupts.h"

#include <atomic>
#include <windows.h>

namespace halvane {
namespace {

std::atomic<bool> has_come = false;

/// The second one goes to the handler of before, which ends the program.
BOOL WINAPI interrupt(DWORD event) {
    return event == CTRL_C_EVENT && !has_come.exchange(true) ? TRUE : FALSE;
}

} // namespace

void take_interrupts() {
    ::SetConsoleCtrlHandler(interrupt, TRUE);
}

bool interrupted() {
    return has_come;
}

} // namespace halvane
