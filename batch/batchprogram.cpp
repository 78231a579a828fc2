// SPDX-License-Identifier: MIT
#include "batch/batchprogram.h"

#include "base/failure.h"
#include "batch/batchline.h"
#include "batch/console.h"
#include "batch/usagemistake.h"
#include "routines/machineclock.h"
#include "routines/seriesloader.h"
#include "stored/outputfile.h"
#include "stored/programfolder.h"
#include "system/programstart.h"
#include "system/unfinishedfile.h"

#include <algorithm>
#include <cerrno>
#include <exception>
#include <iostream>
#include <memory>
#include <string>
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
    const std::unique_ptr<BatchLine> line =
        batch_line(pages, std::vector<std::string>(argv + std::min(argc, 1), argv + argc));
    try {
        line->app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (const std::string mistype = told_mistype(*line); error.get_exit_code() != 0 && !mistype.empty()) {
            std::cerr << "halvane-report: " << mistype << "\n";
            return status_usage;
        }
        return line->app.exit(error) == 0 ? status_done : status_usage;
    }
    if (!line->folder.empty())
        set_program_folder(line->folder);
    if (!line->now.empty())
        set_machine_time(line->time);
    remove_old_leftovers(program_folder());
    const Task* const task = line->wanted();
    if (task == nullptr)
        return status_usage;
    ConsoleProgress progress;
    const int status = run_task(*task, progress);
    tell_series();
    return status;
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
