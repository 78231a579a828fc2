// SPDX-License-Identifier: MIT
#include "batch/runoutput.h"

#include "base/failure.h"
#include "base/twintext.h"
#include "batch/choices.h"
#include "batch/tasks.h"
#include "stored/outputfile.h"
#include "stored/programfiles.h"
#include "stored/programfolder.h"
#include "system/path.h"
#include "system/unfinishedfile.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

namespace halvane {
namespace {

/// The file of a run that the command line names none for.
std::string usual_file(const Run& run, ReportFormat format) {
    std::filesystem::path name = path_of(run.report_name());
    if (name.empty())
        return std::string(standard_output);
    if (format != ReportFormat::text)
        name.replace_extension(name_of(format));
    return program_path(name.string());
}

void tell_cancelled(ReportFormat format) {
    std::cerr << (format == ReportFormat::text ? "Cancelled: the report holds the rows so far.\n"
                                               : "Cancelled: no file has been written.\n");
}

} // namespace

void add_output_options(CLI::App& command, RunOutput& output) {
    const std::vector<std::string> names = format_names(report_formats());
    command
        .add_option_function<std::string>(
            "--format", [&output](const std::string& name) { output.format = format_of(name).value(); },
            choice_of(names) + "; text, the fixed report, when not given")
        ->type_name("FORMAT")
        ->check(one_of(names));
    command
        .add_option("--output", output.file,
                    "File to write, - for standard output; the report's own name, with the ending of the "
                    "format, when not given")
        ->type_name("FILE");
}

void require_no_program_file(const std::string& path) {
    if (!is_standard_output(path))
        require_no_program_file(path, ProgramFiles());
}

void require_no_program_file(const std::string& path, const ProgramFiles& files) {
    if (files.have(path_of(path)))
        throw RunTimeFailure(TwinWords{path + " is a file of the program; no result replaces it.",
                                       path + " من ملفات البرنامج، و لا تحل نتيجة محله."});
}

int save_text(const std::string& text, const std::string& path) {
    const std::string file = path.empty() ? std::string(standard_output) : path;
    require_no_program_file(file);
    save_result(file, text.ends_with('\n') ? text : text + "\n");
    if (!is_standard_output(file))
        std::cout << file << "\n";
    return status_done;
}

int write_and_tell(const Run& run, const RunOutput& output, Progress& progress, const char* refusal) {
    const std::string path = output.file.empty() ? usual_file(run, output.format) : output.file;
    require_no_program_file(path);
    if (!output.file.empty())
        remove_old_leftovers(folder_of(path));
    const RunOutcome outcome = write_run(run, output.format, path, progress);
    if (outcome == RunOutcome::refused) {
        std::cerr << refusal << "\n";
        return status_failure;
    }
    const bool is_written = outcome == RunOutcome::done || output.format == ReportFormat::text;
    if (is_written && !is_standard_output(path))
        std::cout << path << "\n";
    if (outcome == RunOutcome::cancelled)
        tell_cancelled(output.format);
    return outcome == RunOutcome::done ? status_done : status_failure;
}

} // namespace halvane
