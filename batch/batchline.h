// SPDX-License-Identifier: MIT
#pragma once

#include "base/machinetime.h"
#include "batch/tasks.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace halvane {

/// The command line of halvane-report: its options, its tasks with theirs, and what has been read of it.
/// Help, pages of the manual and completions are made from `app`.
struct BatchLine {
    CLI::App app;
    std::string folder;
    std::string now; ///< as typed; `time` holds it
    MachineTime time;
    std::vector<Task> tasks;

    BatchLine();
    /// The task that has been found on the line; null for none.
    const Task* wanted() const;
};

/// What the exit statuses mean, a line each, for every help.
std::vector<std::string> exit_status_lines();

/// Prepared for a line.
/// In     words  of the line: only the tasks among them get their options, which takes less time; without
///               them every task
std::unique_ptr<BatchLine> batch_line(const PageMaker& pages = {},
                                      const std::optional<std::vector<std::string>>& words = {});

/// The mistyped task or option of a line that was refused, with the nearest name; empty for another mistake.
std::string told_mistype(const BatchLine& line);

} // namespace halvane
