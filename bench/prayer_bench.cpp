// SPDX-License-Identifier: MIT
#include "bench/storedyear.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/series.h"
#include "prayer/moonday.h"
#include "prayer/moonrun.h"
#include "prayer/prayerday.h"
#include "prayer/prayerrun.h"
#include "routines/machineclock.h"
#include "routines/namedengine.h"
#include "routines/seriesloader.h"
#include "tests/support/programfolder.h"

#include <benchmark/benchmark.h>

namespace {

using namespace halvane;

void day_of_prayers(benchmark::State& state) {
    const TemporaryProgramFolder folder;
    load_series();
    const PrayerSettings settings = read_prayer_settings(DayMode::report);
    double jd = epoch_j2000 - 0.5;
    for ([[maybe_unused]] auto step : state)
        benchmark::DoNotOptimize(prayer_day(named_ephemeris(), settings, jd += 1, 0));
}
BENCHMARK(day_of_prayers)->Unit(benchmark::kMicrosecond);

void day_of_the_moon(benchmark::State& state) {
    const TemporaryProgramFolder folder;
    load_series();
    double jd = epoch_j2000 - 0.5;
    for ([[maybe_unused]] auto step : state)
        benchmark::DoNotOptimize(moon_day(named_ephemeris(), read_pref(), read_loc(), jd += 1, 0));
}
BENCHMARK(day_of_the_moon)->Unit(benchmark::kMicrosecond);

void report_of_a_year(benchmark::State& state,
                      RunPointer (*run_of)(const TheoryPointer&, const MachineTime&)) {
    const TemporaryProgramFolder folder;
    load_series();
    bench::store_year(2026);
    NoProgress progress;
    for ([[maybe_unused]] auto step : state)
        write_report(*run_of(loaded_theory(), machine_time()), progress);
}
BENCHMARK_CAPTURE(report_of_a_year, prayers, prayer_run)
    ->Name("prayer report of a year")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(report_of_a_year, moon, moon_run)
    ->Name("Moon report of a year")
    ->Unit(benchmark::kMillisecond);

} // namespace
