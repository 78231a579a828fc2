// SPDX-License-Identifier: MIT
#pragma once

#include "tests/batch/batchprocess.h"

#include <fcntl.h>
#include <functional>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace halvane {

/// Runs before which the new process prepares itself, and to which signals are sent.
class ForkedBatch : public BatchTest {
protected:
    /// In     in_child  what the new process does before the program takes its place
    pid_t start(
        std::vector<std::string> arguments, const std::function<void()>& in_child = [] {}) const {
        arguments.insert(arguments.begin(), HALVANE_REPORT);
        std::vector<char*> words;
        words.reserve(arguments.size() + 1);
        for (std::string& argument : arguments)
            words.push_back(argument.data());
        words.push_back(nullptr);
        const std::string out = (streams / "out").string();
        const std::string err = (streams / "err").string();
        const pid_t child = ::fork();
        if (child == 0) {
            ::dup2(::open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDOUT_FILENO);
            ::dup2(::open(err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDERR_FILENO);
            in_child();
            ::execv(HALVANE_REPORT, words.data());
            ::_exit(127);
        }
        return child;
    }
    Outcome wait_for(pid_t child) const {
        int status = 0;
        ::waitpid(child, &status, 0);
        Outcome outcome;
        outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
        outcome.output = bytes_of(streams / "out");
        outcome.errors = bytes_of(streams / "err");
        return outcome;
    }
    using BatchTest::run_in_folder;
    Outcome run_in_folder(std::vector<std::string> arguments, const std::function<void()>& in_child) const {
        arguments.insert(arguments.begin(), {"--folder", folder.path().string()});
        return wait_for(start(arguments, in_child));
    }
};

} // namespace halvane
