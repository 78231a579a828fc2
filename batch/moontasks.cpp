// SPDX-License-Identifier: MIT
#include "batch/tasks.h"

#include "base/numberformat.h"
#include "base/record.h"
#include "crescent/crescentreport.h"
#include "crescent/crescentrules.h"
#include "phases/phasereport.h"
#include "routines/series.h"
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
    return refused ? refused->text.english : std::string();
}

} // namespace

Task phases_task() {
    const auto delta_t = std::make_shared<std::optional<double>>();
    return {"phases", "Moon phases of the stored year, into results.out",
            [delta_t](CLI::App& command) {
                command
                    .add_option("--delta-t", *delta_t,
                                "Delta T in seconds in place of the one proposed for the year")
                    ->type_name("SECONDS")
                    ->check(read_delta_t);
            },
            [delta_t](Progress& progress) {
                load_termfull();
                load_mterm();
                load_elp();
                const PhaseSettings settings = read_phase();
                const std::string text = *delta_t ? plain_number(**delta_t) : proposed_delta_t(settings.year);
                const PhaseYear run = phase_year(settings, text);
                for (const auto& refused : {refused_phase_year(run), refused_delta_t(run)})
                    if (refused)
                        return report_refused(*refused);
                return report_written(write_phase_report(loaded_theory(), run, progress), "results.out");
            }};
}

Task crescent_task() {
    return {
        "crescent", "Circumstances and visibility of the stored crescent, into visib.out", {}, [](Progress&) {
            load_series();
            const CrescentSettings settings = read_visib();
            for (const auto& refused : {refused_conjunction(settings), refused_user_time(settings)})
                if (refused)
                    return report_refused(refused->told);
            const CrescentRun run = read_crescent_run(settings);
            Ephemeris ephemeris(loaded_theory());
            DayEvents events;
            write_crescent_report(loaded_theory(), run, find_conjunction(ephemeris, run), events);
            return report_written(RunOutcome::done, "visib.out");
        }};
}

} // namespace halvane
