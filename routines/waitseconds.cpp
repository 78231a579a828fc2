// SPDX-License-Identifier: MIT
#include "routines/waitseconds.h"

#include <chrono>
#include <thread>

namespace halvane {
namespace {

void (*pending_events)() = nullptr;

} // namespace

void waitseconds(double seconds) {
    using Clock = std::chrono::steady_clock;
    constexpr auto slice = std::chrono::milliseconds(5);
    const auto target = Clock::now() + std::chrono::duration<double>(seconds);
    while (Clock::now() < target) {
        if (pending_events != nullptr)
            pending_events();
        std::this_thread::sleep_for(slice);
    }
}

void set_pending_events_handler(void (*handler)()) {
    pending_events = handler;
}

} // namespace halvane
