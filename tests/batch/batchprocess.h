// SPDX-License-Identifier: MIT
// halvane-report as its users run it: a process, its arguments, its streams and its exit status.
#pragma once

#include "tests/support/childprocess.h"
#include "tests/support/programfolder.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace halvane {

struct Outcome {
    int status = -1; ///< exit status; the signal's number + 128 when one ended the process
    std::string output, errors;
};

class BatchTest : public testing::Test {
protected:
    Outcome outcome_of(ChildProcess& process) const {
        Outcome outcome;
        outcome.status = process.wait();
        outcome.output = bytes_of(streams / "out");
        outcome.errors = bytes_of(streams / "err");
        return outcome;
    }
    Outcome run(const std::vector<std::string>& arguments) const {
        ChildProcess process(HALVANE_REPORT, arguments, streams / "out", streams / "err");
        return outcome_of(process);
    }
    Outcome run_in_folder(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"--folder", folder.path().string()});
        return run(arguments);
    }
    static std::ptrdiff_t lines(const std::string& text) {
        return std::count(text.begin(), text.end(), '\n');
    }
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
