// SPDX-License-Identifier: MIT
#pragma once

#include "base/progress.h"
#include "base/twintext.h"
#include "batch/pagemaker.h"

#include <functional>
#include <string>
#include <vector>

namespace CLI {
class App;
} // namespace CLI

namespace halvane {

/// A word of the command line and what it does. `run` writes what the task prints to standard output and
/// returns the exit status.
struct Task {
    std::string name;
    std::string description;
    std::function<void(CLI::App&)> add_options; ///< may be empty
    std::function<int(Progress&)> run;
    std::vector<std::string> examples = {}; ///< whole command lines, for the help
};

/// Exit statuses of the batch program.
inline constexpr int status_done = 0;
inline constexpr int status_failure = 1;
inline constexpr int status_usage = 2;

/// Every task, in the order of the help.
/// In     pages  who paints
std::vector<Task> batch_tasks(const PageMaker& pages = {});

/// The tasks of the rooms beside `prayer`.
Task phases_task();
Task crescent_task();
Task map_task(const PageMaker& pages);
Task criteria_task();

/// Prints what keeps a task from starting; gives its exit status.
int report_refused(const Refusal& refused);

} // namespace halvane
