// SPDX-License-Identifier: MIT
// halvane-paper: halvane-report with painter and fonts, which it becomes for PDF files.
#include "batch/batchprogram.h"
#include "timetable/timetablepdf.h"

#include <QGuiApplication>
#include <QLoggingCategory>
#include <optional>

int main(int argc, char** argv) {
    std::optional<QGuiApplication>
        application; // fonts need one; nothing is shown, so a display is never asked for
    const auto begin = [&] {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false")); // of a missing session
        application.emplace(argc, argv);
    };
    const auto pdf_of = [](const halvane::Timetable& timetable, const halvane::PageSettings& page) {
        return halvane::pdf_of(timetable, page);
    };
    return halvane::run_batch(argc, argv, {begin, pdf_of});
}
