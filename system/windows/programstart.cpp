// SPDX-License-Identifier: MIT
#include "system/programstart.h"

#include "system/unfinishedfile.h"

#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <windows.h>

namespace halvane {
namespace {

/// Ctrl-C, Ctrl-Break, a closed window, log-off and shut-down: the system ends the process behind it.
BOOL WINAPI clean_up(DWORD /*event*/) {
    remove_unfinished_files();
    return FALSE;
}

} // namespace

void begin_program() {
    for (std::FILE* stream : {stdin, stdout, stderr})
        ::_setmode(::_fileno(stream), _O_BINARY);
    ::SetConsoleOutputCP(CP_UTF8);
    ::SetConsoleCtrlHandler(clean_up, TRUE);
}

} // namespace halvane
