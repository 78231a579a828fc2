// SPDX-License-Identifier: MIT
#include "batch/batchline.h"

#include "batch/clocktime.h"
#include "batch/nearestname.h"
#include "stored/versiontext.h"
#include "system/path.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace halvane {
namespace {

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

/// What stands below the options of a help.
std::string footer_of(const std::vector<std::string>& examples) {
    std::string text;
    for (const std::string& example : examples)
        text += (text.empty() ? "Examples:\n  " : "  ") + example + "\n";
    text += "\nExit status:\n";
    for (const std::string& line : exit_status_lines())
        text += "  " + line + "\n";
    return text;
}

/// The long names of an app's options.
void add_names(const CLI::App& app, std::vector<std::string>& names) {
    for (const CLI::Option* const option : app.get_options())
        for (const std::string& name : option->get_lnames())
            names.push_back("--" + name);
}

std::string told_task(const std::string& word, const std::vector<Task>& tasks) {
    std::vector<std::string> names;
    names.reserve(tasks.size());
    for (const Task& task : tasks)
        names.push_back(task.name);
    return "there is no task \"" + word + "\"; the nearest is \"" + nearest_name(word, names) +
           "\". See halvane-report --help.";
}

} // namespace

BatchLine::BatchLine()
    : app("The reports of Halvane without its panels, from the stored files of a folder.", "halvane-report") {
}

const Task* BatchLine::wanted() const {
    const auto found = std::find_if(tasks.begin(), tasks.end(),
                                    [this](const Task& task) { return app.got_subcommand(task.name); });
    return found == tasks.end() ? nullptr : &*found;
}

std::vector<std::string> exit_status_lines() {
    return {"0 what was asked for is done", "1 it could not be done, and standard error tells why",
            "2 the command line has a mistake; nothing was done"};
}

std::unique_ptr<BatchLine> batch_line(const PageMaker& pages,
                                      const std::optional<std::vector<std::string>>& words) {
    auto line = std::make_unique<BatchLine>();
    CLI::App& app = line->app;
    app.set_version_flag(
        "--version", [] { return version_text("halvane-report"); },
        "The version with its commit, and the folder of the stored files where it is not plain");
    app.require_subcommand(1);
    app.failure_message(CLI::FailureMessage::simple);
    app.footer(footer_of({"halvane-report next --place Cairo", "halvane-report prayer --help"}));
    app.add_option(
           "--folder", line->folder,
           "Folder of the stored files and the reports; the program's own when not given. The series files "
           "are the program's own when the folder holds none.")
        ->type_name("DIR")
        ->check(read_folder);
    MachineTime& time = line->time;
    app.add_option("--now", line->now, "Sets the machine's clock for the run: YYYY-MM-DDTHH:MM")
        ->type_name("TIME")
        ->check([&time](const std::string& text) { return read_now(text, time); });
    app.fallthrough();

    line->tasks = batch_tasks(pages);
    for (Task& task : line->tasks) {
        CLI::App* const subcommand = app.add_subcommand(task.name, task.description);
        if (words && std::find(words->begin(), words->end(), task.name) == words->end())
            continue;
        subcommand->footer(footer_of(task.examples));
        if (task.add_options)
            task.add_options(*subcommand);
    }
    return line;
}

std::string told_mistype(const BatchLine& line) {
    const Task* const task = line.wanted();
    std::vector<std::string> words = line.app.remaining();
    std::vector<std::string> names;
    add_names(line.app, names);
    if (task != nullptr) {
        const CLI::App* const subcommand = line.app.get_subcommand(task->name);
        const std::vector<std::string> more = subcommand->remaining();
        words.insert(words.end(), more.begin(), more.end());
        add_names(*subcommand, names);
    }
    for (const std::string& word : words)
        if (task == nullptr && !word.starts_with('-'))
            return told_task(word, line.tasks);
    for (const std::string& word : words) {
        const std::string option = word.substr(0, word.find('='));
        if (!option.starts_with("--") || std::find(names.begin(), names.end(), option) != names.end())
            continue;
        const std::string of_task = task == nullptr ? "" : " " + task->name;
        std::string told = "there is no option \"" + option + "\"";
        if (task != nullptr)
            (told += " of") += of_task;
        (told += "; the nearest is \"") += nearest_name(option, names);
        return (((told += "\". See halvane-report") += of_task) += " --help.");
    }
    return {};
}

} // namespace halvane
