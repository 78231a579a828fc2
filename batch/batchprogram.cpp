// SPDX-License-Identifier: MIT
#include "batch/batchprogram.h"

#include "base/failure.h"
#include "batch/clocktime.h"
#include "batch/console.h"
#include "batch/nearestname.h"
#include "batch/tasks.h"
#include "batch/usagemistake.h"
#include "routines/machineclock.h"
#include "routines/seriesloader.h"
#include "stored/outputfile.h"
#include "stored/programfolder.h"
#include "stored/versiontext.h"
#include "system/path.h"
#include "system/programstart.h"
#include "system/unfinishedfile.h"

#include <CLI/CLI.hpp>

#include <cerrno>
#include <exception>
#include <filesystem>
#include <iostream>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

namespace halvane {
namespace {

/// What has been printed must have arrived.
/// Error  raises RunTimeFailure.
void finish_standard_output() {
    errno = 0;
    if (std::cout.flush())
        return;
    if (errno == 0)
        errno = EIO; // the reason of an earlier write is gone
    throw write_failure(std::string(standard_output));
}

/// Reads the time of --now; an empty text for a good one, as the command line library asks for.
std::string read_now(const std::string& text, MachineTime& time) {
    const std::optional<MachineTime> read = clock_time(text);
    if (!read)
        return "wanted a time as YYYY-MM-DDTHH:MM, found \"" + text + "\"";
    time = *read;
    return {};
}

/// An empty text for a folder that is there, as the command line library asks for.
std::string read_folder(const std::string& text) {
    std::error_code ignored;
    const std::filesystem::file_status status = std::filesystem::status(path_of(text), ignored);
    if (!std::filesystem::exists(status))
        return "Directory does not exist: " + text;
    return std::filesystem::is_directory(status) ? "" : "Directory is actually a file: " + text;
}

std::vector<std::string> names_of(const std::vector<Task>& tasks) {
    std::vector<std::string> names;
    names.reserve(tasks.size());
    for (const Task& task : tasks)
        names.push_back(task.name);
    return names;
}

/// The word that stands where a task is wanted and is none; nothing when a task was found.
std::optional<std::string> unknown_task(const CLI::App& app, const std::vector<Task>& tasks) {
    for (const Task& task : tasks)
        if (app.got_subcommand(task.name))
            return std::nullopt;
    for (const std::string& word : app.remaining())
        if (!word.starts_with('-'))
            return word;
    return std::nullopt;
}

/// Tells of series files that are not the delivered ones.
void tell_series() {
    for (const std::string& note : series_notes(Language::english))
        std::cerr << "halvane-report: " << note << "\n";
}

int run_task(const Task& task, Progress& progress) {
    try {
        return task.run(progress);
    } catch (const UsageMistake& mistake) {
        return tell_mistake(mistake);
    }
}

int run(int argc, char** argv, const PageMaker& pages) {
    CLI::App app("The reports of Halvane without its panels, from the stored files of a folder.",
                 "halvane-report");
    app.set_version_flag("--version", [] { return version_text("halvane-report"); });
    app.require_subcommand(1);
    app.failure_message(CLI::FailureMessage::simple);

    std::string folder;
    app.add_option(
           "--folder", folder,
           "Folder of the stored files and the reports; the program's own when not given. The series files "
           "are the program's own when the folder holds none.")
        ->type_name("DIR")
        ->check(read_folder);
    std::string now;
    MachineTime time;
    app.add_option("--now", now, "Sets the machine's clock for the run: YYYY-MM-DDTHH:MM")
        ->type_name("TIME")
        ->check([&time](const std::string& text) { return read_now(text, time); });
    app.fallthrough();

    std::vector<Task> tasks = batch_tasks(pages);
    for (Task& task : tasks) {
        CLI::App* subcommand = app.add_subcommand(task.name, task.description);
        if (task.add_options)
            task.add_options(*subcommand);
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (const std::optional<std::string> word = unknown_task(app, tasks)) {
            std::cerr << "halvane-report: there is no task \"" << *word << "\"; the nearest is \""
                      << nearest_name(*word, names_of(tasks)) << "\". See halvane-report --help.\n";
            return status_usage;
        }
        return app.exit(error) == 0 ? status_done : status_usage;
    }
    if (!folder.empty())
        set_program_folder(folder);
    if (!now.empty())
        set_machine_time(time);
    remove_old_leftovers(program_folder());
    for (const Task& task : tasks)
        if (app.got_subcommand(task.name)) {
            ConsoleProgress progress;
            const int status = run_task(task, progress);
            tell_series();
            return status;
        }
    return status_usage;
}

} // namespace

int run_batch(int argc, char** argv, const PageMaker& pages) {
    begin_program();
    try {
        const int status = run(argc, argv, pages);
        finish_standard_output();
        return status;
    } catch (const std::exception& failure) {
        std::cerr << "halvane-report: " << words_of(parts_of(failure), Language::english) << "\n";
    } catch (...) {
        std::cerr << "halvane-report: an unknown failure\n";
    }
    tell_series();
    return status_failure;
}

} // namespace halvane
