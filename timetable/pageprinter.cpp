// SPDX-License-Identifier: MIT
#include "timetable/pageprinter.h"

#include "panel/messages.h"
#include "panel/printerchoice.h"
#include "stored/outputfile.h"
#include "timetable/pageframe.h"

#include <QPainter>
#include <QPrinter>
#include <QWidget>
#include <algorithm>

namespace halvane {

namespace {

/// The largest place of a sheet's form in the middle of what a printer takes.
QRectF placed(const QSizeF& sheet, const QRectF& room) {
    const QSizeF size = sheet.scaled(room.size(), Qt::KeepAspectRatio);
    return {room.center() - QPointF(size.width(), size.height()) / 2, size};
}

} // namespace

void set_paper(QPrinter& printer, PaperSize paper) {
    printer.setFullPage(true);
    printer.setPageSize(QPageSize(paper == PaperSize::a4 ? QPageSize::A4 : QPageSize::Letter));
    printer.setPageOrientation(QPageLayout::Portrait);
}

bool print_pages(QPrinter& printer, const PaintedPages& pages) {
    const int first = std::max(1, printer.fromPage());
    const int last = printer.toPage() > 0 ? std::min(printer.toPage(), pages.count) : pages.count;
    QPainter painter;
    if (first > last || !painter.begin(&printer))
        return false;
    const QRectF room(QPointF(), printer.paperRect(QPrinter::DevicePixel).size());
    for (int number = first; number <= last; ++number) {
        if (number > first && !printer.newPage())
            return false;
        pages.paint(painter, placed(paper_size(pages.paper), room), number);
    }
    return painter.end() && printer.printerState() != QPrinter::Error;
}

void print_document(const PrintedDocument& document, QWidget& panel, Language language) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(panel.windowTitle());
    set_paper(printer, document.paper);
    if (!choose_printer(printer, panel))
        return;
    if (printer.outputFileName().isEmpty()) {
        if (!print_pages(printer, document.pages()))
            warn_of_file(&panel, text_of(not_printed, language), language);
        return;
    }
    if (const std::optional<std::string> bytes = document.pdf())
        save_result(printer.outputFileName().toStdString(), *bytes);
}

} // namespace halvane
