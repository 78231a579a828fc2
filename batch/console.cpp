// SPDX-License-Identifier: MIT
#include "batch/console.h"

#include "stored/unfinishedfile.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <string>
#include <unistd.h>

namespace halvane {
namespace {

volatile std::sig_atomic_t interrupted = 0;

/// The first interrupt cancels; a second one ends a run that does not come to that.
void interrupt(int signal) {
    if (interrupted != 0)
        end_by_signal(signal);
    interrupted = 1;
}

} // namespace

ConsoleProgress::ConsoleProgress() : terminal_(::isatty(STDERR_FILENO) == 1) {
    struct sigaction action {};
    action.sa_handler = interrupt;
    sigaction(SIGINT, &action, nullptr);
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
    return interrupted == 0;
}

} // namespace halvane
