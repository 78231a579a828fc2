// SPDX-License-Identifier: MIT
#include "crescent/crescentreport.h"
#include "crescent/visibilitymap.h"
#include "ephemeris/series.h"
#include "phases/phasereport.h"
#include "routines/namedengine.h"
#include "routines/seriesloader.h"
#include "tests/support/programfolder.h"

#include <benchmark/benchmark.h>

namespace {

using namespace halvane;

void phases_of_a_year(benchmark::State& state, bool geocentric) {
    const TemporaryProgramFolder folder;
    load_series();
    NoProgress progress;
    const PhaseYear year = phase_year({"2026", geocentric, true}, proposed_delta_t("2026"));
    for ([[maybe_unused]] auto step : state)
        write_report(*phase_run(loaded_theory(), year), progress);
}
BENCHMARK_CAPTURE(phases_of_a_year, geocentric, true)
    ->Name("phase report of a year, geocentric")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(phases_of_a_year, topocentric, false)
    ->Name("phase report of a year, topocentric")
    ->Unit(benchmark::kMillisecond);

void crescent_report(benchmark::State& state) {
    const TemporaryProgramFolder folder;
    load_series();
    const CrescentRecords run = read_crescent_records(read_visib());
    DayEvents events;
    NoProgress progress;
    for ([[maybe_unused]] auto step : state)
        write_report(*crescent_run(loaded_theory(), run, find_conjunction(named_ephemeris(), run), events),
                     progress);
}
BENCHMARK(crescent_report)->Name("crescent report")->Unit(benchmark::kMicrosecond);

class CountedPoints : public MapReceiver {
public:
    void point(const MapPoint& /*point*/) override { ++count; }
    bool go_on() override { return true; }
    long count = 0;
};

void visibility_map(benchmark::State& state, Criterion criterion) {
    const TemporaryProgramFolder folder;
    load_series();
    const CrescentRecords crescent = read_crescent_records(read_visib());
    MapRun run;
    run.criterion = criterion;
    run.conjunction =
        map_conjunction(named_ephemeris(), find_conjunction(named_ephemeris(), crescent).dynamical);
    run.day = map_day(run.conjunction, run.kind, 1);
    for ([[maybe_unused]] auto step : state) {
        CountedPoints points;
        draw_visibility_map(loaded_theory(), run, points);
        benchmark::DoNotOptimize(points.count);
    }
}
BENCHMARK_CAPTURE(visibility_map, vesk, Criterion::vesk)->Name("map, Vesk")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(visibility_map, yallop, Criterion::yallop)
    ->Name("map, Yallop")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(visibility_map, saao, Criterion::saao)->Name("map, SAAO")->Unit(benchmark::kMillisecond);

} // namespace
