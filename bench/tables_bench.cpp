// SPDX-License-Identifier: MIT
#include "bench/yearofhours.h"
#include "ephemeris/series.h"
#include "routines/seriesloader.h"
#include "tables/ephemeristable.h"
#include "telescope/pointing.h"
#include "tests/support/programfolder.h"

#include <benchmark/benchmark.h>

namespace {

/// The pointing at the stored place.
std::optional<halvane::TelescopePointing> pointing_of(const halvane::TelescopeSettings& settings) {
    return halvane::telescope_pointing(halvane::loaded_theory(), settings, halvane::read_pref(),
                                       halvane::read_loc());
}

using namespace halvane;

void table_of_a_year(benchmark::State& state, int object) {
    const TemporaryProgramFolder folder;
    load_series();
    const EphemerisSettings settings = bench::year_of_hours(object);
    NoProgress progress;
    for ([[maybe_unused]] auto step : state)
        write_report(*ephemeris_run(loaded_theory(), settings), progress);
}
BENCHMARK_CAPTURE(table_of_a_year, sun, 0)
    ->Name("table of a year's hours, Sun")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(table_of_a_year, moon, 1)
    ->Name("table of a year's hours, Moon")
    ->Unit(benchmark::kMillisecond);

void pointing_of_the_telescope(benchmark::State& state) {
    const TemporaryProgramFolder folder;
    load_series();
    TelescopeSettings settings;
    settings.year = 2024;
    settings.month = 3;
    settings.day = 11;
    settings.hour = 18;
    for ([[maybe_unused]] auto step : state) {
        settings.minute = settings.minute < 30 ? settings.minute + 1e-3 : 0;
        benchmark::DoNotOptimize(pointing_of(settings));
    }
}
BENCHMARK(pointing_of_the_telescope)->Unit(benchmark::kMicrosecond);

} // namespace
