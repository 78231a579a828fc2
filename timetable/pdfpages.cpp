// SPDX-License-Identifier: MIT
#include "timetable/pdfpages.h"

#include "base/failure.h"
#include "timetable/pagetext.h"
#include "timetable/readablepdf.h"

#include <QBuffer>
#include <QPdfWriter>
#include <QString>

namespace halvane {
namespace {

constexpr int dots_per_inch = 1200;

void set_up(QPdfWriter& writer, const PaintedPages& pages, const std::string& title) {
    writer.setResolution(dots_per_inch);
    writer.setPageSize(QPageSize(pages.paper == PaperSize::a4 ? QPageSize::A4 : QPageSize::Letter));
    writer.setPageOrientation(pages.is_landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
    writer.setPageMargins(QMarginsF(0, 0, 0, 0));
    writer.setTitle(QString::fromStdString(title));
    writer.setCreator(QStringLiteral("Halvane"));
}

} // namespace

void require_fonts(PageLanguage language) {
    const bool english = language != PageLanguage::arabic;
    const bool arabic = language != PageLanguage::english;
    if ((english && !has_font(Language::english)) || (arabic && !has_font(Language::arabic)))
        throw RunTimeFailure(
            TwinWords{"There is no font for the pages. Noto Sans and Noto Sans Arabic are in the package "
                      "fonts-noto-core.",
                      "لا يوجد خط للصفحات. Noto Sans و Noto Sans Arabic في الحزمة fonts-noto-core."});
}

std::string pdf_of(const PaintedPages& pages, const std::string& title) {
    require_fonts(pages.language);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        set_up(writer, pages, title);
        QPainter painter(&writer);
        const QRectF room(0, 0, writer.width(), writer.height());
        for (int number = 1; number <= pages.count; ++number) {
            if (number > 1)
                writer.newPage();
            pages.paint(painter, room, number);
        }
    }
    return readable_pdf(bytes).toStdString();
}

} // namespace halvane
