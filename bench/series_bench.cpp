// SPDX-License-Identifier: MIT
#include "ephemeris/series.h"
#include "routines/seriesloader.h"
#include "tests/support/programfolder.h"

#include <benchmark/benchmark.h>

namespace {

using namespace halvane;

void loading_of_the_series(benchmark::State& state) {
    const TemporaryProgramFolder folder;
    for ([[maybe_unused]] auto step : state)
        load_series();
}
BENCHMARK(loading_of_the_series)->Unit(benchmark::kMillisecond);

} // namespace
