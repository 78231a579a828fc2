#include "app/batch/tasks.h"

#include "app/stored/phase.h"
#include "app/stored/record.h"
#include "crescent/crescentreport.h"
#include "ephemeris/series.h"
#include "phases/phasereport.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <optional>

namespace halvane {

Task phases_task() {
    const auto delta_t = std::make_shared<std::optional<double>>();
    return {"phases", "Moon phases of the stored year, into results.out",
            [delta_t](CLI::App& command) {
                command
                    .add_option("--delta-t", *delta_t,
                                "Delta T in seconds in place of the one proposed for the year")
                    ->type_name("SECONDS");
            },
            [delta_t](Progress& progress) {
                load_termfull();
                load_mterm();
                load_elp();
                const PhaseSettings settings = read_phase();
                const std::string text = *delta_t ? plain_number(**delta_t) : proposed_delta_t(settings.year);
                return report_written(write_phases(phase_year(settings, text), progress), "results.out");
            }};
}

Task crescent_task() {
    return {
        "crescent", "Circumstances and visibility of the stored crescent, into visib.out", {}, [](Progress&) {
            load_series();
            const CrescentSettings settings = read_visib();
            write_crescent_report(settings, find_conjunction(settings));
            return report_written(RunOutcome::done, "visib.out");
        }};
}

} // namespace halvane
