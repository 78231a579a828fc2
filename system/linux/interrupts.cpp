// SPDX-License-Identifier: MIT
#include "system/interrupts.h"

#include "system/linux/endsignal.h"

#include <csignal>

namespace halvane {
namespace {

volatile std::sig_atomic_t has_come = 0;

void interrupt(int signal) {
    if (has_come != 0)
        end_by_signal(signal);
    has_come = 1;
}

} // namespace

void take_interrupts() {
    struct sigaction action {};
    action.sa_handler = interrupt;
    sigaction(SIGINT, &action, nullptr);
}

bool interrupted() {
    return has_come != 0;
}

} // namespace halvane
