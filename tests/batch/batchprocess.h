// SPDX-License-Identifier: MIT
// halvane-report as its users run it: a process, its arguments, its streams and its exit status.
#pragma once

#include "tests/support/programfolder.h"

#include <algorithm>
#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace halvane {

struct Outcome {
    int status = -1; ///< exit status; the signal's number + 128 when one ended the process
    std::string output, errors;
};

class BatchTest : public testing::Test {
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
    Outcome run(const std::vector<std::string>& arguments) const { return wait_for(start(arguments)); }
    Outcome run_in_folder(
        std::vector<std::string> arguments, const std::function<void()>& in_child = [] {}) const {
        arguments.insert(arguments.begin(), {"--folder", folder.path().string()});
        return wait_for(start(arguments, in_child));
    }
    static long lines(const std::string& text) { return std::count(text.begin(), text.end(), '\n'); }
    static bool holds(const std::string& text, const std::string& part) {
        return text.find(part) != std::string::npos;
    }

    /// A failure: status 1, nothing on standard output, one line on standard error.
    static void expect_failure(const Outcome& outcome, const std::string& part) {
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.output, "");
        EXPECT_EQ(lines(outcome.errors), 1) << outcome.errors;
        EXPECT_TRUE(outcome.errors.starts_with("halvane-report: ")) << outcome.errors;
        EXPECT_TRUE(holds(outcome.errors, part)) << outcome.errors;
    }

    std::string note_of(const std::string& name) const {
        return "halvane-report: the series file " + (folder / name).string() + " is not the delivered one\n";
    }

    TemporaryProgramFolder folder;
    TemporaryProgramFolder streams;
};

} // namespace halvane
