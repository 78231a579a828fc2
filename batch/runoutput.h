// SPDX-License-Identifier: MIT
#pragma once

#include "base/progress.h"
#include "report/run.h"

#include <string>

namespace CLI {
class App;
} // namespace CLI

namespace halvane {

class ProgramFiles;

/// What the command line asks of a task's result.
struct RunOutput {
    ReportFormat format = ReportFormat::text;
    std::string file; ///< "-" standard output; empty: the report's own name, with the ending of the format
};

/// Adds --format and --output to a task.
void add_output_options(CLI::App& command, RunOutput& output);

/// Error  raises RunTimeFailure when `path` names a file of the program: no result replaces it.
void require_no_program_file(const std::string& path);
/// The same for one of many paths, none of them standard output.
void require_no_program_file(const std::string& path, const ProgramFiles& files);

/// Writes lines to `path`, standard output where it is empty, and prints the path of a file; gives the exit
/// status. In     text  without its last line end
/// Error  raises RunTimeFailure; an earlier file then stands.
int save_text(const std::string& text, const std::string& path);

/// Writes a run as it was asked for and prints the path of its file; gives the exit status.
/// In     refusal  what a refused run says
/// Error  raises RunTimeFailure; an earlier file then stands.
int write_and_tell(const Run& run, const RunOutput& output, Progress& progress, const char* refusal = "");

} // namespace halvane
