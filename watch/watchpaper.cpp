// SPDX-License-Identifier: MIT
#include "watch/watchpaper.h"

#include "base/failure.h"
#include "timetable/pageframe.h"
#include "watch/watchpainter.h"

#include <QBuffer>
#include <QImage>
#include <cmath>
#include <memory>

namespace halvane {
namespace {

PaintedPages pages_of(const CrescentWatch& watch, const WatchPage& page) {
    return painted_pages(std::make_shared<const CrescentWatch>(watch), page);
}

} // namespace

std::string pdf_of(const CrescentWatch& watch, const WatchPage& page) {
    return pdf_of(pages_of(watch, page), document_title(watch, page.language));
}

std::string png_of(const CrescentWatch& watch, const WatchPage& page, int width) {
    constexpr double millimetres_of_metre = 1000;
    const PaintedPages pages = pages_of(watch, page);
    require_fonts(pages.language);
    const QSizeF paper = paper_size(page.paper);
    const int height = static_cast<int>(std::lround(width * paper.height() / paper.width()));
    QImage image(width, height * pages.count, QImage::Format_RGB32);
    if (image.isNull())
        throw RunTimeFailure(
            TwinWords{"There is not enough memory for the picture.", "الذاكرة لا تكفي للصورة."},
            FailureKind::no_memory);
    image.fill(Qt::white);
    const int dots = static_cast<int>(std::lround(width * millimetres_of_metre / paper.width()));
    image.setDotsPerMeterX(dots);
    image.setDotsPerMeterY(dots);
    {
        QPainter painter(&image);
        for (int number = 1; number <= pages.count; ++number)
            pages.paint(painter, QRectF(0, (number - 1) * height, width, height), number);
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, "PNG"))
        throw RunTimeFailure(
            TwinWords{"The picture could not be written as PNG.", "تعذرت كتابة الصورة بصيغة PNG."});
    return bytes.toStdString();
}

} // namespace halvane
