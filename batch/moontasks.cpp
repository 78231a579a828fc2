// SPDX-License-Identifier: MIT
#include "batch/tasks.h"

#include "base/numberformat.h"
#include "base/record.h"
#include "batch/recordoptions.h"
#include "batch/runoutput.h"
#include "crescent/crescentreport.h"
#include "crescent/crescentrules.h"
#include "phases/phasereport.h"
#include "routines/seriesloader.h"
#include "stored/phase.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <optional>

namespace halvane {
namespace {

/// An empty text for a Delta T that can be used, as the command line library asks for.
std::string read_delta_t(const std::string& text) {
    PhaseYear run;
    if (!CLI::detail::lexical_cast(text, run.delta_t))
        return "wanted a number of seconds, found \"" + text + "\"";
    const std::optional<Refusal> refused = refused_delta_t(run);
    return refused ? refused->text.in(Language::english) : std::string();
}

} // namespace

Task phases_task() {
    const auto delta_t = std::make_shared<std::optional<double>>();
    const auto records = std::make_shared<RecordOptions>();
    records->days = DayUse::year;
    records->files = {RecordFile::preferences, RecordFile::location, RecordFile::phase};
    const auto output = std::make_shared<RunOutput>();
    return {"phases", "Moon phases of the stored year, into results.out",
            [delta_t, records, output](CLI::App& command) {
                add_output_options(command, *output);
                add_record_options(command, *records);
                command
                    .add_option("--delta-t", *delta_t,
                                "Delta T in seconds in place of the one proposed for the year")
                    ->type_name("SECONDS")
                    ->check(read_delta_t);
            },
            [delta_t, records, output](Progress& progress) {
                const Supposition supposed = suppose(*records);
                load_termfull();
                load_mterm();
                load_elp();
                const PhaseSettings settings = read_phase();
                const std::string text = *delta_t ? plain_number(**delta_t) : proposed_delta_t(settings.year);
                const PhaseYear year = phase_year(settings, text);
                for (const auto& refused : {refused_phase_year(year), refused_delta_t(year)})
                    if (refused)
                        return report_refused(*refused);
                return write_and_tell(*phase_run(loaded_theory(), year), *output, progress);
            }};
}

Task crescent_task() {
    struct Options {
        RunOutput output;
        RecordOptions records;
        bool is_short = false;
    };
    const auto options = std::make_shared<Options>();
    options->records.days = DayUse::crescent;
    options->records.files = {RecordFile::preferences, RecordFile::location, RecordFile::crescent};
    return {"crescent", "Circumstances and visibility of the stored crescent, into visib.out",
            [options](CLI::App& command) {
                add_output_options(command, options->output);
                add_record_options(command, options->records);
                command
                    .add_flag("--short", options->is_short,
                              "The answer of every criterion in a line each, on standard output")
                    ->excludes(command.get_option("--format"));
            },
            [options](Progress& progress) {
                const Supposition supposed = suppose(options->records);
                load_series();
                const CrescentSettings settings = read_visib();
                for (const auto& refused : {refused_conjunction(settings), refused_user_time(settings)})
                    if (refused)
                        return report_refused(refused->told);
                const CrescentRecords values = read_crescent_records(settings);
                Ephemeris ephemeris(loaded_theory());
                DayEvents events;
                const RunPointer run =
                    crescent_run(loaded_theory(), values, find_conjunction(ephemeris, values), events);
                if (!options->is_short)
                    return write_and_tell(*run, options->output, progress);
                return save_text(run->short_answer().english, options->output.file);
            }};
}

} // namespace halvane
