// SPDX-License-Identifier: MIT
#include "ephemeris/modgeneral.h"
#include "ephemeris/series.h"
#include "events/lowriseset.h"
#include "events/riseset.h"
#include "routines/modriseset.h"
#include "routines/seriesloader.h"
#include "tests/support/programfolder.h"

#include <benchmark/benchmark.h>

namespace {

using namespace halvane;

void rise_and_set(benchmark::State& state, const char* body) {
    const TemporaryProgramFolder folder;
    load_series();
    double jd0 = epoch_j2000 - 0.5 - 3.0 / 24;
    for ([[maybe_unused]] auto step : state) {
        TaggedTime rise;
        TaggedTime set;
        modriseset(body, jd0 += 1, rise, set);
        benchmark::DoNotOptimize(rise);
    }
}
BENCHMARK_CAPTURE(rise_and_set, sun, "Sun")->Name("modriseset Sun");
BENCHMARK_CAPTURE(rise_and_set, moon, "Moon")->Name("modriseset Moon");
BENCHMARK_CAPTURE(rise_and_set, fajer, "Fajer")->Name("modriseset Fajer");
BENCHMARK_CAPTURE(rise_and_set, asr, "Asr")->Name("modriseset Asr");

void fast_rise_and_set(benchmark::State& state, const char* body) {
    const TemporaryProgramFolder folder;
    load_mterm();
    double jd = epoch_j2000 - 0.5;
    for ([[maybe_unused]] auto step : state) {
        TaggedTime rise;
        TaggedTime set;
        modlowriseset(jd += 1, 36, 32, body, rise, set);
        benchmark::DoNotOptimize(rise);
    }
}
BENCHMARK_CAPTURE(fast_rise_and_set, sun, "Sun")->Name("modlowriseset Sun");
BENCHMARK_CAPTURE(fast_rise_and_set, moon, "Moon")->Name("modlowriseset Moon");

} // namespace
