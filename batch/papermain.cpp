// SPDX-License-Identifier: MIT
// halvane-paper: halvane-report with a painter, which it becomes for PDF files.
#include "batch/batchprogram.h"
#include "timetable/timetablepdf.h"

#include <QGuiApplication>
#include <QLoggingCategory>
#include <optional>

int main(int argc, char** argv) {
    std::optional<QGuiApplication> application; // fonts need one
    const auto begin = [&] {
        qputenv("QT_QPA_PLATFORM", "offscreen");                                   // nothing is shown
        QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false")); // of a missing session
        application.emplace(argc, argv);
    };
    const auto pdf_of = [](const halvane::Timetable& timetable, const halvane::PageSettings& page) {
        return halvane::pdf_of(timetable, page);
    };
    return halvane::run_batch(argc, argv, {begin, pdf_of});
}
