// SPDX-License-Identifier: MIT
#include "system/programstart.h"

#include "system/linux/endsignal.h"
#include "system/unfinishedfile.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <initializer_list>
#include <unistd.h>

namespace halvane {
namespace {

void handle(int number, void (*handler)(int)) {
    struct sigaction present {};
    if (::sigaction(number, nullptr, &present) != 0 || present.sa_handler == SIG_IGN)
        return; // as nohup and a shell's background jobs ask for
    struct sigaction action {};
    action.sa_handler = handler;
    ::sigaction(number, &action, nullptr);
}

} // namespace

void end_by_signal(int number) {
    remove_unfinished_files();
    ::signal(number, SIG_DFL);
    ::raise(number);
}

void begin_program() {
    // In the other direction than the stream's: its use stays the error that it is when closed.
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (::fcntl(stream, F_GETFD) < 0 && errno == EBADF) [[maybe_unused]]
            const int placeholder = ::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    ::signal(SIGPIPE, SIG_IGN);
    ::signal(SIGXFSZ, SIG_IGN);
    for (const int number : {SIGTERM, SIGHUP, SIGINT})
        handle(number, end_by_signal);
}

} // namespace halvane
