// SPDX-License-Identifier: MIT
#include "finemap/mappicturefiles.h"

#include "finemap/finesheet.h"
#include "finemap/pngwriter.h"
#include "timetable/pageframe.h"
#include "timetable/pdfpages.h"

#include <QBuffer>
#include <QImage>
#include <QSvgGenerator>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace halvane {
namespace {

constexpr double page_units_of_metre = 1000 * page_units;

FineSheet sheet_of(const MapDocument& document, const MapPage& page, const WorldOutline& world) {
    std::vector<const FineMap*> maps;
    for (const FineMap& map : page.maps)
        maps.push_back(&map);
    return {maps, world, document.look, page.clock};
}

/// The rows of a strip: as many as go into so much memory.
int strip_rows(int width, int height) {
    constexpr int most_pixels = 8 * 1024 * 1024;
    return std::clamp(most_pixels / width, 1, height);
}

void draw_png(const MapDocument& document, const WorldOutline& world, const TakeBytes& take) {
    const MapPage page = document.page(1);
    const FineSheet sheet = sheet_of(document, page, world);
    const int width = document.width;
    const QSizeF size = sheet.natural_size();
    const double scale = width / size.width();
    const int height = std::max(1, static_cast<int>(std::lround(size.height() * scale)));
    PngWriter writer(static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height),
                     static_cast<std::uint32_t>(std::lround(scale * page_units_of_metre)), take);
    const int rows = strip_rows(width, height);
    for (int top = 0; top < height; top += rows) {
        const int count = std::min(rows, height - top);
        QImage strip(width, count, QImage::Format_RGB32);
        strip.fill(Qt::white);
        {
            QPainter painter(&strip);
            painter.translate(0, -top);
            painter.scale(scale, scale);
            const double margin = 2 * page_units; // lines and signs reach beyond the points they stand for
            const QRectF visible(0, top / scale - margin, size.width(), count / scale + 2 * margin);
            sheet.paint(painter, size, visible);
        }
        const QImage colours = strip.convertToFormat(QImage::Format_RGB888);
        for (int row = 0; row < count; ++row)
            writer.row({colours.constScanLine(row), static_cast<std::size_t>(width) * 3});
    }
    writer.finish();
}

void draw_svg(const MapDocument& document, const WorldOutline& world, const TakeBytes& take) {
    const MapPage page = document.page(1);
    const FineSheet sheet = sheet_of(document, page, world);
    const int width = document.width;
    const QSizeF size = sheet.natural_size();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QSvgGenerator generator;
        generator.setOutputDevice(&buffer);
        generator.setTitle(QString::fromStdString(document.title));
        generator.setSize({width, static_cast<int>(std::lround(width * size.height() / size.width()))});
        generator.setViewBox(QRectF(QPointF(0, 0), size));
        QPainter painter(&generator);
        sheet.paint(painter, size, QRectF(QPointF(0, 0), size));
    }
    take({bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

PageLanguage page_language(Language language) {
    return language == Language::english ? PageLanguage::english : PageLanguage::arabic;
}

void draw_pdf(const MapDocument& document, const WorldOutline& world, const TakeBytes& take) {
    const QSizeF size = paper_size(document.paper).transposed() * page_units;
    const auto paint = [&](QPainter& painter, const QRectF& room, int number) {
        const MapPage page = document.page(number);
        painter.save();
        painter.scale(room.width() / size.width(), room.height() / size.height());
        sheet_of(document, page, world)
            .paint(painter, size, QRectF(QPointF(0, 0), size), {number, document.pages});
        painter.restore();
    };
    take(pdf_of({document.paper, page_language(document.look.language), document.pages, paint, true},
                document.title));
}

} // namespace

void draw_maps(const MapDocument& document, const WorldOutline& world, MapFormat format,
               const TakeBytes& take) {
    require_fonts(page_language(document.look.language));
    switch (format) {
    case MapFormat::png:
        draw_png(document, world, take);
        break;
    case MapFormat::svg:
        draw_svg(document, world, take);
        break;
    default:
        draw_pdf(document, world, take);
        break;
    }
}

} // namespace halvane
