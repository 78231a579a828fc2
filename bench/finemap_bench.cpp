// SPDX-License-Identifier: MIT
#include "crescent/crescentevening.h"
#include "finemap/finemappainter.h"
#include "routines/namedengine.h"
#include "routines/seriesloader.h"
#include "tests/support/programfolder.h"
#include "timetable/pagetext.h"

#include <QGuiApplication>
#include <QImage>
#include <benchmark/benchmark.h>

namespace {

using namespace halvane;

constexpr double evening = 2461089.5; // 2026 February 18

FineMap map_of_step(double step) {
    FineMapSettings settings;
    settings.day = evening;
    settings.conjunction = geocentric_conjunction(named_ephemeris(), evening);
    settings.criterion = catalogued_criterion("yallop-1997");
    settings.step = step;
    NoProgress progress;
    return make_fine_map(loaded_theory(), settings, progress).value();
}

void paint_window(benchmark::State& state, const MapWindow& window) {
    constexpr int width = 1400;
    constexpr double dots_of_unit = 96 / 25.4 / page_units;
    const TemporaryProgramFolder folder;
    load_series();
    const FineMap map = map_of_step(0.25);
    const WorldOutline world = read_world_outline();
    const FineMapPainter painter(map, world, {});
    QImage image(width, static_cast<int>(width * shape_of(window)), QImage::Format_RGB32);
    const MapFrame frame{window, 0, 0, image.width() / dots_of_unit, image.height() / dots_of_unit};
    const QRectF whole(0, 0, frame.width, frame.height);
    for ([[maybe_unused]] auto step : state) {
        QPainter on_image(&image);
        on_image.scale(dots_of_unit, dots_of_unit);
        painter.paint(on_image, frame, whole);
    }
}
BENCHMARK_CAPTURE(paint_window, world, MapWindow())
    ->Name("fine map of the world, 1400 pixels")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(paint_window, region, (MapWindow{20, 10, 60, 40}))
    ->Name("fine map of a region, 1400 pixels")
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv); // fonts need one
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
