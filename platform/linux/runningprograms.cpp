// SPDX-License-Identifier: MIT
#include "platform/linux/runningprograms.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <string_view>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace halvane {
namespace {

namespace fs = std::filesystem;

bool is_users_own(const fs::path& process) {
    struct stat status {};
    return ::stat(process.c_str(), &status) == 0 && status.st_uid == ::getuid();
}

std::string name_of_executable(const fs::path& process) {
    constexpr std::string_view replaced = " (deleted)";
    std::error_code error;
    std::string name = fs::read_symlink(process / "exe", error).filename().string();
    if (name.ends_with(replaced))
        name.resize(name.size() - replaced.size());
    return error ? std::string() : name;
}

bool is_process(const std::string& name) {
    return std::all_of(name.begin(), name.end(), [](unsigned char c) { return std::isdigit(c) != 0; });
}

} // namespace

bool user_runs(const std::string& executable) {
    std::error_code error;
    fs::directory_iterator entry("/proc", error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error))
        if (is_process(entry->path().filename().string()) && is_users_own(entry->path()) &&
            name_of_executable(entry->path()) == executable)
            return true;
    return false;
}

} // namespace halvane
