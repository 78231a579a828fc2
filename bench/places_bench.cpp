// SPDX-License-Identifier: MIT
#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/moon.h"
#include "ephemeris/series.h"
#include "ephemeris/sun.h"
#include "routines/modcoordinates.h"
#include "routines/modearthorientation.h"
#include "routines/modmoon.h"
#include "routines/modsun.h"
#include "routines/seriesloader.h"
#include "tests/support/programfolder.h"

#include <benchmark/benchmark.h>

namespace {

using namespace halvane;

/// Hours of one year after the other, so that no result of an earlier call is met again.
double next_hour() {
    static double jd = epoch_j2000;
    return jd += 1.0 / 24;
}

/// Times calls of `routine(jd)` with the delivered settings and series in place.
template <class Routine>
void run(benchmark::State& state, Routine routine) {
    const TemporaryProgramFolder folder;
    load_series();
    for ([[maybe_unused]] auto step : state)
        benchmark::DoNotOptimize(routine(next_hour()));
}

template <auto Routine>
void sun_routine(benchmark::State& state) {
    run(state, [](double jd) {
        SunPlace sun;
        Routine(pi, jd, sun.right_ascension, sun.declination, sun.topocentric_right_ascension,
                sun.topocentric_declination, sun.longitude, sun.latitude, sun.topocentric_longitude,
                sun.topocentric_latitude, sun.radius, sun.equation_of_time);
        return sun;
    });
}
BENCHMARK(sun_routine<modcorsh>)->Name("modcorsh");
BENCHMARK(sun_routine<modcorsm>)->Name("modcorsm");
BENCHMARK(sun_routine<modcorsl>)->Name("modcorsl");

void sun_of_any_place(benchmark::State& state) {
    run(state, [](double jd) {
        SunPlace sun;
        modcorsvl(36, 32, jd, sun.right_ascension, sun.declination, sun.topocentric_right_ascension,
                  sun.topocentric_declination, sun.longitude, sun.latitude, sun.topocentric_longitude,
                  sun.topocentric_latitude, sun.radius);
        return sun;
    });
}
BENCHMARK(sun_of_any_place)->Name("modcorsvl");

void moon_by_the_tables(benchmark::State& state) {
    run(state, [](double jd) {
        MoonPlace moon;
        modcormm(pi, jd, moon.right_ascension, moon.declination, moon.topocentric_right_ascension,
                 moon.topocentric_declination, moon.longitude, moon.latitude, moon.topocentric_longitude,
                 moon.topocentric_latitude, moon.parallax, moon.semidiameter, moon.topocentric_semidiameter,
                 moon.distance);
        return moon;
    });
}
BENCHMARK(moon_by_the_tables)->Name("modcormm");

void moon_by_periodic_terms(benchmark::State& state) {
    run(state, [](double jd) {
        MoonPlace moon;
        modcorml(pi, jd, moon.right_ascension, moon.declination, moon.topocentric_right_ascension,
                 moon.topocentric_declination, moon.longitude, moon.latitude, moon.topocentric_longitude,
                 moon.topocentric_latitude, moon.parallax, moon.semidiameter, moon.topocentric_semidiameter);
        return moon;
    });
}
BENCHMARK(moon_by_periodic_terms)->Name("modcorml");

void moon_of_any_place(benchmark::State& state) {
    run(state, [](double jd) {
        MoonPlace moon;
        modcormvl(36, 32, jd, moon.right_ascension, moon.declination, moon.topocentric_right_ascension,
                  moon.topocentric_declination, moon.longitude, moon.latitude, moon.topocentric_longitude,
                  moon.topocentric_latitude, moon.parallax, moon.semidiameter, moon.topocentric_semidiameter,
                  moon.distance);
        return moon;
    });
}
BENCHMARK(moon_of_any_place)->Name("modcormvl");

void orientation(benchmark::State& state) {
    run(state, [](double jd) {
        double nutation_longitude = 0;
        double nutation_obliquity = 0;
        double true_obliquity = 0;
        modobliquity(jd, nutation_longitude, nutation_obliquity, true_obliquity);
        return true_obliquity;
    });
}
BENCHMARK(orientation)->Name("modobliquity");

void horizontal_coordinates(benchmark::State& state) {
    run(state, [](double jd) {
        double altitude = 0;
        double azimuth = 0;
        modaltazm(jd, 120, 15, altitude, azimuth);
        return altitude + azimuth;
    });
}
BENCHMARK(horizontal_coordinates)->Name("modaltazm");

} // namespace
