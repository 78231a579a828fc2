// SPDX-License-Identifier: MIT
#include "system/executable.h"

#include "system/windows/handle.h"
#include "system/windows/quotedword.h"
#include "system/windows/widepath.h"

namespace halvane {
std::string executable_path() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size())
            return narrow(path.substr(0, length));
        path.resize(path.size() * 2);
    }
}

std::string program_file(std::string_view program) {
    return std::string(program) + ".exe";
}

// No process can become another one here: this one waits for it and ends as it does.
void continue_as(const std::string& path, char** words) {
    std::wstring line;
    for (; *words != nullptr; ++words)
        line += (line.empty() ? L"" : L" ") + quoted_word(wide(*words));
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION begun{};
    if (::CreateProcessW(wide(path).c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                         &begun) == 0) {
        tell_last_error();
        return;
    }
    const Handle thread(begun.hThread);
    const Handle process(begun.hProcess);
    ::SetConsoleCtrlHandler(nullptr, TRUE); // Ctrl-C is for the other one
    ::WaitForSingleObject(process.get(), INFINITE);
    DWORD status = 1;
    ::GetExitCodeProcess(process.get(), &status);
    ::ExitProcess(status);
}

} // namespace halvane
