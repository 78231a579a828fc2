// SPDX-License-Identifier: MIT
#include "batch/tasks.h"

#include "batch/daytasks.h"
#include "batch/finemaptask.h"
#include "batch/hijritask.h"
#include "batch/recordoptions.h"
#include "batch/runoutput.h"
#include "batch/taskexamples.h"
#include "batch/timetabletask.h"
#include "batch/watchtask.h"
#include "calendar/yearlimits.h"
#include "prayer/moonrun.h"
#include "prayer/prayerrun.h"
#include "prayer/todayrun.h"
#include "qibla/qiblahrun.h"
#include "routines/machineclock.h"
#include "routines/seriesloader.h"
#include "stored/coor.h"
#include "stored/date.h"
#include "stored/tele.h"
#include "tables/ephemeristable.h"
#include "telescope/readouts.h"
#include "telescope/telescoperun.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>
#include <utility>

namespace halvane {
namespace {

constexpr RecordFile preferences = RecordFile::preferences;
constexpr RecordFile location = RecordFile::location;

/// What a task takes of the stored files.
struct TaskRecords {
    DayUse days = DayUse::none;
    std::vector<RecordFile> files;
};
TaskRecords records_of_period() {
    return {DayUse::period, {preferences, location, RecordFile::date}};
}

/// A task that writes one run.
/// In     make     reads the stored files and loads the series; nothing when the task has been refused
///        refusal  what a refused run says
Task run_task(const char* name, const char* description, const TaskRecords& reads,
              std::function<RunPointer(const Supposition&)> make, const char* refusal = "") {
    struct Options {
        RunOutput output;
        RecordOptions records;
    };
    const auto options = std::make_shared<Options>();
    options->records.days = reads.days;
    options->records.files = reads.files;
    return {name, description,
            [options](CLI::App& command) {
                add_output_options(command, options->output);
                add_record_options(command, options->records);
            },
            [options, make = std::move(make), refusal](Progress& progress) {
                const Supposition supposed = suppose(options->records);
                const RunPointer run = make(supposed);
                return run != nullptr ? write_and_tell(*run, options->output, progress, refusal)
                                      : status_failure;
            }};
}

/// Tells why the stored period is refused.
bool is_period_refused() {
    const auto refused = refused_stored_period(read_date());
    if (refused)
        report_refused(*refused);
    return refused.has_value();
}

RunPointer prayer_of_period(const Supposition& /*supposed*/) {
    if (is_period_refused())
        return nullptr;
    load_term();
    load_mterm();
    return prayer_run(loaded_theory(), machine_time());
}

RunPointer moon_of_period(const Supposition& /*supposed*/) {
    if (is_period_refused())
        return nullptr;
    load_mterm();
    load_elp();
    return moon_run(loaded_theory(), machine_time());
}

RunPointer times_of_today(const Supposition& supposed) {
    load_term();
    load_mterm();
    MachineTime day = machine_time();
    day.year = static_cast<int>(supposed.date.year);
    day.month = static_cast<int>(supposed.date.month);
    day.day = static_cast<int>(supposed.date.day);
    return today_run(loaded_theory(), day);
}

RunPointer qiblah_of_period(QiblahMark mark) {
    if (is_period_refused())
        return nullptr;
    load_term();
    load_mterm();
    return qiblah_run(loaded_theory(), machine_time(), stored_qiblah_direction(), mark);
}

RunPointer stored_ephemeris(const Supposition& /*supposed*/) {
    load_termfull();
    load_mterm();
    load_elp();
    const EphemerisSettings settings = read_coor();
    if (const auto refused = refused_table(settings)) {
        report_refused(refused->told);
        return nullptr;
    }
    RunPointer run = ephemeris_run(loaded_theory(), settings);
    if (run == nullptr)
        std::cerr << end_before_start.text.in(Language::english) << "\n";
    return run;
}

RunPointer stored_telescope(const Supposition& /*supposed*/) {
    load_term();
    load_mterm();
    load_elp();
    const TelescopeSettings settings = read_tele();
    if (const auto refused = refused_year(settings.year, theory_years)) {
        report_refused(*refused);
        return nullptr;
    }
    return telescope_run(loaded_theory(), settings);
}

} // namespace

int report_refused(const Refusal& refused) {
    std::cerr << refused.text.in(Language::english) << "\n";
    return status_failure;
}

std::vector<Task> batch_tasks(const PageMaker& pages) {
    std::vector<Task> tasks{
        run_task("prayer", "Prayer times of the stored period, into results.out", records_of_period(),
                 prayer_of_period, high_latitude_message.text.in(Language::english)),
        run_task("moon", "Moon times of the stored period, into mresults.out", records_of_period(),
                 moon_of_period),
        run_task("today", "Today's six prayer times, on standard output",
                 {DayUse::today, {preferences, location}}, times_of_today),
        next_task(),
        day_task(),
        sun_task(),
        phases_task(),
        crescent_task(),
        map_task(pages),
        atlas_task(pages),
        criteria_task(),
        run_task("qibla-sun", "When the Sun stands in the direction of the Qiblah, into results.out",
                 records_of_period(), [](const Supposition&) { return qiblah_of_period(QiblahMark::sun); }),
        run_task(
            "qibla-shadow", "When the Sun's shadow lies in the direction of the Qiblah, into results.out",
            records_of_period(), [](const Supposition&) { return qiblah_of_period(QiblahMark::shadow); }),
        run_task("ephemeris", "Table of the Sun or the Moon, into ephemeris.out",
                 {DayUse::period, {location, RecordFile::ephemeris}}, stored_ephemeris),
        run_task("telescope", "Pointing numbers of Sun, Moon and crescent, on standard output",
                 {DayUse::instant, {preferences, location, RecordFile::telescope}}, stored_telescope,
                 moon_below_horizon.text.in(Language::english)),
        timetable_task(pages),
        watch_task(pages),
        hijri_task(pages),
    };
    for (Task& task : tasks)
        task.examples = examples_of(task.name);
    return tasks;
}

} // namespace halvane
