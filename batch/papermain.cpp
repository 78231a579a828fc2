// SPDX-License-Identifier: MIT
// halvane-paper: halvane-report with a painter, which it becomes for painted pages.
#include "batch/batchprogram.h"
#include "batch/mapprogram.h"
#include "finemap/mappicturefiles.h"
#include "hijri/monthpaper.h"
#include "platform/deliveredfonts.h"
#include "system/commandline.h"
#include "timetable/timetablepdf.h"
#include "watch/watchpaper.h"

#include <QGuiApplication>
#include <QLoggingCategory>
#include <optional>

int main(int argc, char** argv) {
    halvane::CommandLine line(argc, argv);
    std::optional<QGuiApplication> application; // fonts need one
    halvane::PageMaker pages;
    pages.begin = [&] {
        qputenv("QT_QPA_PLATFORM", "offscreen");                                   // nothing is shown
        QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false")); // of a missing session
        application.emplace(argc, argv);
        halvane::use_delivered_fonts();
    };
    halvane::take_map_pictures(pages, line.words());
    pages.timetable_pdf = [](const halvane::Timetable& timetable, const halvane::PageSettings& page) {
        return halvane::pdf_of(timetable, page);
    };
    pages.watch_pdf = [](const halvane::CrescentWatch& watch, const halvane::WatchPage& page) {
        return halvane::pdf_of(watch, page);
    };
    pages.watch_png = halvane::png_of;
    pages.hijri_pdf = [](const std::vector<halvane::MonthSheet>& sheets, const halvane::MonthPage& page) {
        return halvane::pdf_of(sheets, page);
    };
    pages.draw_maps = halvane::draw_maps;
    return halvane::run_batch(line.count(), line.words(), pages);
}
