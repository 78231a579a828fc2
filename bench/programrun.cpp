// SPDX-License-Identifier: MIT
#include "bench/programrun.h"

#include <chrono>
#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace halvane::bench {

ProgramRun run_program(const std::vector<std::string>& command, const std::string& folder) {
    using Clock = std::chrono::steady_clock;
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string& word : command)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    const auto start = Clock::now();
    pid_t child = 0;
    const int error = posix_spawn(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    rusage usage{};
    if (error != 0 || wait4(child, &status, 0, &usage) != child || !WIFEXITED(status) ||
        WEXITSTATUS(status) != 0)
        throw std::runtime_error("Cannot run " + command.front() + ".");
    const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    return {seconds, static_cast<double>(usage.ru_maxrss) / 1024};
}

} // namespace halvane::bench
