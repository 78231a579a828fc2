// SPDX-License-Identifier: MIT
#include "system/executable.h"

#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace halvane {

std::string executable_path() {
    std::error_code error;
    const std::filesystem::path executable = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::string() : executable.string();
}

std::string program_file(std::string_view program) {
    return std::string(program);
}

void continue_as(const std::string& path, char** words) {
    ::execv(path.c_str(), words);
}

} // namespace halvane
