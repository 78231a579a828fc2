// SPDX-License-Identifier: MIT
#include "system/console.h"

#include <cstdio>
#include <initializer_list>
#include <windows.h>

namespace halvane {
namespace {

bool is_open(DWORD stream) {
    const HANDLE handle = ::GetStdHandle(stream);
    return handle != nullptr && handle != INVALID_HANDLE_VALUE && ::GetFileType(handle) != FILE_TYPE_UNKNOWN;
}

} // namespace

bool errors_are_on_a_terminal() {
    const HANDLE errors = ::GetStdHandle(STD_ERROR_HANDLE);
    DWORD mode = 0;
    return ::GetConsoleMode(errors, &mode) != 0 &&
           ::SetConsoleMode(errors, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

// Not for the whole life of the program, which would end with the terminal's window.
void open_starters_terminal() {
    if (is_open(STD_OUTPUT_HANDLE) || ::AttachConsole(ATTACH_PARENT_PROCESS) == 0)
        return;
    ::SetConsoleOutputCP(CP_UTF8);
    for (std::FILE* stream : {stdout, stderr})
        if (std::freopen("CONOUT$", "wb", stream) == nullptr)
            return;
}

} // namespace halvane
