// SPDX-License-Identifier: MIT
#include "bench/storedyear.h"
#include "calendar/moddeltat.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/series.h"
#include "qibla/qiblahrun.h"
#include "routines/machineclock.h"
#include "routines/namedengine.h"
#include "routines/seriesloader.h"
#include "tests/support/programfolder.h"

#include <benchmark/benchmark.h>

namespace {

using namespace halvane;

void day_of_the_qiblah(benchmark::State& state) {
    const TemporaryProgramFolder folder;
    load_series();
    QiblahSearch search;
    search.observer = stored_observer();
    search.zone = read_loc().zone;
    search.azimuth = target_azimuth(stored_qiblah_direction(), false);
    moddeltat(epoch_j2000, search.delta_t);
    double jd = epoch_j2000 - 0.5;
    for ([[maybe_unused]] auto step : state)
        benchmark::DoNotOptimize(qiblah_day(named_ephemeris(), search, jd += 1, 0));
}
BENCHMARK(day_of_the_qiblah)->Unit(benchmark::kMicrosecond);

void qiblah_report_of_a_year(benchmark::State& state, QiblahMark mark) {
    const TemporaryProgramFolder folder;
    load_series();
    bench::store_year(2026);
    NoProgress progress;
    for ([[maybe_unused]] auto step : state)
        write_report(*qiblah_run(loaded_theory(), machine_time(), stored_qiblah_direction(), mark), progress);
}
BENCHMARK_CAPTURE(qiblah_report_of_a_year, sun, QiblahMark::sun)
    ->Name("Qiblah report of a year, the Sun")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(qiblah_report_of_a_year, shadow, QiblahMark::shadow)
    ->Name("Qiblah report of a year, its shadow")
    ->Unit(benchmark::kMillisecond);

} // namespace
