// SPDX-License-Identifier: MIT
// Draws the picture of the world that the visibility map is painted over.

#include "tools/drawmap/worldlines.h"
#include "tools/drawmap/worldprogram.h"

#include <cmath>

#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>

namespace halvane {
namespace {

constexpr int width = 748;
constexpr int height = 412;
constexpr PlateCarree map = {374, 206, 2.0733333, 2.06666667};

// Nearly grey and very light: the colours painted over it stand out in sunlight, and for eyes that see cyan
// as grey or red as green.
const QColor sea(0xF1, 0xF5, 0xF7);
const QColor shore_sea(0xD2, 0xE0, 0xE8);
const QColor land_colour(0xEB, 0xE4, 0xD3);
const QColor coast_colour(0x7C, 0x88, 0x92);
const QColor border_colour(0xC2, 0xB6, 0x9C);
const QColor grid_colour(0x70, 0x80, 0x8C, 64);
const QColor circle_colour(0x70, 0x80, 0x8C, 110);
const QColor paper(0xFB, 0xFA, 0xF7);
const QColor ink(0x4A, 0x55, 0x5F);

constexpr double tropic = 23.44;
constexpr double polar_circle = 90 - tropic;

/// The centre of the pixel that holds the coordinate: thin straight lines stay sharp.
double sharp(double coordinate) {
    return std::floor(coordinate) + 0.5;
}

void draw_parallel(QPainter& painter, double latitude) {
    const double y = sharp(map.y(latitude));
    painter.drawLine(QPointF(0, y), QPointF(width, y));
}

void draw_meridian(QPainter& painter, double longitude) {
    const double x = sharp(map.x(longitude));
    painter.drawLine(QPointF(x, map.y(90)), QPointF(x, map.y(-90)));
}

void draw_sea_and_land(QPainter& painter, const WorldLines& world) {
    const QPainterPath coast = world.coast(map);
    painter.fillRect(0, 0, width, height, sea);
    constexpr double smallest_shore = 1.5;
    const QPainterPath shore = world.coast(map, smallest_shore);
    for (const double shore_width : {10.0, 6.0}) {
        QColor colour = shore_sea;
        colour.setAlpha(85);
        painter.strokePath(shore, QPen(colour, shore_width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    }
    painter.fillPath(world.land(map), land_colour);
    painter.strokePath(world.border_path(map),
                       QPen(border_colour, 0.7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.strokePath(coast, QPen(coast_colour, 0.55, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void draw_grid(QPainter& painter) {
    painter.setPen(QPen(grid_colour, 1));
    for (int longitude = -150; longitude <= 150; longitude += 30) {
        draw_meridian(painter, longitude);
    }
    for (const int latitude : {60, 30, -30, -60}) {
        draw_parallel(painter, latitude);
    }
    painter.setPen(QPen(circle_colour, 1));
    draw_parallel(painter, 0);
    QPen dashes(circle_colour, 1);
    dashes.setDashPattern({4, 4});
    dashes.setCapStyle(Qt::FlatCap);
    painter.setPen(dashes);
    for (const double latitude : {polar_circle, tropic, -tropic, -polar_circle}) {
        draw_parallel(painter, latitude);
    }
}

QString angle_text(int degrees, const char* positive, const char* negative) {
    QString text = QString::number(std::abs(degrees)) + QChar(0xB0);
    if (degrees != 0) {
        text += QString::fromLatin1(degrees > 0 ? positive : negative);
    }
    return text;
}

/// Fills a strip beyond a pole: divisions of 10 degrees at the map's side, longitudes every 30 degrees.
void draw_longitude_scale(QPainter& painter, double map_edge, double picture_edge) {
    constexpr double bar = 4;
    const double outward = picture_edge > map_edge ? 1 : -1;
    painter.fillRect(QRectF(QPointF(0, map_edge), QPointF(width, picture_edge)).normalized(), paper);
    for (int longitude = -190; longitude < 190; longitude += 10) {
        const QRectF division(QPointF(map.x(longitude), map_edge),
                              QPointF(map.x(longitude + 10), map_edge + outward * bar));
        painter.fillRect(division.normalized(), (longitude / 10) % 2 == 0 ? ink : paper);
    }
    painter.setPen(QPen(ink, 1));
    for (const double y : {map_edge, map_edge + outward * bar}) {
        painter.drawLine(QPointF(0, y - outward * 0.5), QPointF(width, y - outward * 0.5));
    }
    const QFontMetricsF metrics(painter.font());
    const double middle = (map_edge + outward * bar + picture_edge) / 2;
    const double baseline = std::round(middle + metrics.capHeight() / 2);
    for (int longitude = -150; longitude <= 150; longitude += 30) {
        const QString text = angle_text(longitude, "E", "W");
        painter.drawText(
            QPointF(std::round(map.x(longitude) - metrics.horizontalAdvance(text) / 2), baseline), text);
    }
}

void draw_latitude_text(QPainter& painter, const QPointF& start, const QString& text) {
    QPainterPath path;
    path.addText(start, painter.font(), text);
    painter.strokePath(path,
                       QPen(QColor(255, 255, 255, 150), 2.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setPen(ink);
    painter.drawText(start, text);
}

void draw_latitude_scale(QPainter& painter) {
    const QFontMetricsF metrics(painter.font());
    for (const int latitude : {60, 30, 0, -30, -60}) {
        const QString text = angle_text(latitude, "N", "S");
        const double y = sharp(map.y(latitude)) - 2.5;
        draw_latitude_text(painter, {3, y}, text);
        draw_latitude_text(painter, {std::round(width - 3 - metrics.horizontalAdvance(text)), y}, text);
    }
}

QImage draw(const WorldLines& world) {
    QImage picture(width, height, QImage::Format_RGB32);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setStretch(QFont::SemiCondensed);
    font.setPixelSize(10);
    painter.setFont(font);
    draw_sea_and_land(painter, world);
    draw_grid(painter);
    draw_latitude_scale(painter);
    draw_longitude_scale(painter, map.y(90), 0);
    draw_longitude_scale(painter, map.y(-90), height);
    return picture;
}

} // namespace
} // namespace halvane

int main(int argc, char* argv[]) {
    return halvane::draw_world_picture(argc, argv, halvane::draw);
}
