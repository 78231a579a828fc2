// SPDX-License-Identifier: MIT
#include "batch/console.h"

#include "system/console.h"
#include "system/interrupts.h"

#include <algorithm>
#include <cstdio>
#include <string>

namespace halvane {
ConsoleProgress::ConsoleProgress() : terminal_(errors_are_on_a_terminal()) {
    take_interrupts();
}

ConsoleProgress::~ConsoleProgress() {
    if (terminal_ && shown_ >= 0)
        std::fputs("\r\033[K", stderr);
}

void ConsoleProgress::percent(double value) {
    constexpr int width = 40;
    const int whole = static_cast<int>(std::clamp(value, 0.0, 100.0));
    if (!terminal_ || whole == shown_)
        return;
    shown_ = whole;
    const int filled = whole * width / 100;
    const std::string bar = std::string(static_cast<std::size_t>(filled), '#') +
                            std::string(static_cast<std::size_t>(width - filled), '.');
    std::fprintf(stderr, "\r[%s] %d %%", bar.c_str(), whole);
    std::fflush(stderr);
}

bool ConsoleProgress::yield() {
    return !interrupted();
}

} // namespace halvane
