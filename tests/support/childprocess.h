// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace halvane {

/// A process that a test starts, waits for or kills.
class ChildProcess {
public:
    /// In     arguments  behind the program's own name
    ///        out, err   the files of its standard streams; the test's own ones when empty
    ChildProcess(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                 const std::filesystem::path& out = {}, const std::filesystem::path& err = {});
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// Its exit status; a signal's number + 128 when one ended it.
    int wait();
    /// Ends it at once, wherever it is, and waits for it. Whether it had not ended by itself.
    bool kill();

private:
    std::intptr_t process_ = 0; ///< as the system counts it
};

} // namespace halvane
