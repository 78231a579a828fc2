// SPDX-License-Identifier: MIT
#include "timetable/timetableoutput.h"

#include "routines/machineclock.h"
#include "routines/waitseconds.h"
#include "timetable/pagepainter.h"
#include "timetable/timetablepdf.h"
#include "timetable/timetablerules.h"

#include <QPainter>
#include <QPrinter>
#include <QThreadPool>
#include <algorithm>
#include <chrono>
#include <future>
#include <memory>
#include <utility>

namespace halvane {

namespace {

struct KindWords {
    TimetableFormat format;
    TwinText words;
};

constexpr KindWords kinds[] = {
    {TimetableFormat::pdf, {"PDF, the printed page", "PDF، الصفحة المطبوعة"}},
    {TimetableFormat::csv, {"CSV table", "جدول CSV"}},
    {TimetableFormat::display_csv, {"CSV for screens of mosques", "جدول CSV لشاشات المساجد"}},
    {TimetableFormat::ics, {"Calendar", "تقويم إلكتروني"}},
    {TimetableFormat::json, {"JSON", "JSON"}},
    {TimetableFormat::html, {"Web page", "صفحة ويب"}},
};

/// The largest place of a sheet's form in the middle of what a printer takes.
QRectF placed(const QSizeF& sheet, const QRectF& room) {
    const QSizeF size = sheet.scaled(room.size(), Qt::KeepAspectRatio);
    return {room.center() - QPointF(size.width(), size.height()) / 2, size};
}

} // namespace

QList<SaveKind> timetable_kinds(Language language) {
    QList<SaveKind> all;
    for (const KindWords& kind : kinds) {
        const QString ending = QString::fromStdString(ending_of(kind.format));
        // The mark keeps the pattern's order beside Arabic words.
        all += {text_of(kind.words, language) + QStringLiteral(" \u200E(*.") + ending + u')', ending};
    }
    return all;
}

std::string bytes_of(const Timetable& timetable, const PageSettings& page, TimetableFormat format) {
    return format == TimetableFormat::pdf ? pdf_of(timetable, page)
                                          : text_of_timetable(timetable, page, format, utc_second_now());
}

std::optional<std::string> bytes_of(const Timetable& timetable, const PageSettings& page,
                                    TimetableFormat format, Progress& progress) {
    constexpr double a_moment = 0.02; // [s]
    // After a cancel nobody waits for the rest: the work owns all that it needs.
    std::packaged_task<std::string()> work(
        [timetable, page, format] { return bytes_of(timetable, page, format); });
    std::future<std::string> bytes = work.get_future();
    QThreadPool::globalInstance()->start(
        [shared = std::make_shared<std::packaged_task<std::string()>>(std::move(work))] { (*shared)(); });
    progress.percent(0);
    while (bytes.wait_for(std::chrono::seconds(0)) != std::future_status::ready) {
        waitseconds(a_moment);
        if (!progress.yield())
            return std::nullopt;
    }
    return bytes.get();
}

void set_paper(QPrinter& printer, PaperSize paper) {
    printer.setFullPage(true);
    printer.setPageSize(QPageSize(paper == PaperSize::a4 ? QPageSize::A4 : QPageSize::Letter));
    printer.setPageOrientation(QPageLayout::Portrait);
}

bool print_pages(QPrinter& printer, const std::vector<TimetableSheet>& sheets, const PageSettings& page) {
    const int pages = static_cast<int>(sheets.size());
    const int first = std::max(1, printer.fromPage());
    const int last = printer.toPage() > 0 ? std::min(printer.toPage(), pages) : pages;
    QPainter painter;
    if (first > last || !painter.begin(&printer))
        return false;
    const QRectF room = printer.paperRect(QPrinter::DevicePixel);
    for (int number = first; number <= last; ++number) {
        if (number > first && !printer.newPage())
            return false;
        paint_page(painter, placed(paper_size(page.paper), QRectF(QPointF(), room.size())),
                   sheets[static_cast<std::size_t>(number - 1)], page, number, pages);
    }
    return painter.end() && printer.printerState() != QPrinter::Error;
}

} // namespace halvane
