// SPDX-License-Identifier: MIT
#include "tests/support/childprocess.h"

#include "system/windows/quotedword.h"

#include <stdexcept>
#include <string>
#include <windows.h>

namespace halvane {
namespace {

constexpr UINT killed = 137; // as a process that Linux kills

HANDLE stream_to(const std::filesystem::path& file, DWORD own) {
    if (file.empty())
        return ::GetStdHandle(own);
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return ::CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited,
                         CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
}

/// Begins a process. Under Wine one of several thousand has not begun, for a reason that is not known.
/// Returns the error of the last try: 0 when the process has begun.
DWORD begin(const std::filesystem::path& program, std::wstring line, STARTUPINFOW& start,
            PROCESS_INFORMATION& begun) {
    constexpr int tries = 3;
    constexpr DWORD pause = 300; // [ms]
    DWORD error = 0;
    for (int tried = 0; tried < tries; ++tried) {
        if (::CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                             &start, &begun) != 0)
            return 0;
        error = ::GetLastError();
        ::Sleep(pause);
    }
    return error;
}

HANDLE handle_of(std::intptr_t process) {
    return reinterpret_cast<HANDLE>(process);
}

} // namespace

ChildProcess::ChildProcess(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                           const std::filesystem::path& out, const std::filesystem::path& err) {
    std::wstring line = quoted_word(program.wstring());
    for (const std::string& argument : arguments)
        line += L' ' + quoted_word(std::filesystem::path(argument).wstring());
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = ::GetStdHandle(STD_INPUT_HANDLE);
    start.hStdOutput = stream_to(out, STD_OUTPUT_HANDLE);
    start.hStdError = stream_to(err, STD_ERROR_HANDLE);
    PROCESS_INFORMATION begun{};
    const DWORD error = begin(program, line, start, begun);
    if (!out.empty())
        ::CloseHandle(start.hStdOutput);
    if (!err.empty())
        ::CloseHandle(start.hStdError);
    if (error != 0)
        throw std::runtime_error("cannot start " + program.string() + ": error " + std::to_string(error));
    ::CloseHandle(begun.hThread);
    process_ = reinterpret_cast<std::intptr_t>(begun.hProcess);
}

int ChildProcess::wait() {
    DWORD status = 0;
    ::WaitForSingleObject(handle_of(process_), INFINITE);
    ::GetExitCodeProcess(handle_of(process_), &status);
    ::CloseHandle(handle_of(process_));
    return static_cast<int>(status);
}

bool ChildProcess::kill() {
    ::TerminateProcess(handle_of(process_), killed);
    return wait() == killed;
}

} // namespace halvane
