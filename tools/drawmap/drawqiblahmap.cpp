// SPDX-License-Identifier: MIT
// Draws the world in bands of equal direction to the Kaaba.

#include "tools/drawmap/worldlines.h"
#include "tools/drawmap/worldprogram.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>

namespace halvane {
namespace {

constexpr int width = 1000;
constexpr int height = 560;
constexpr double scale = 960.0 / 360.0;
constexpr PlateCarree map = {width / 2.0, height / 2.0, scale, scale};
constexpr double degree = std::numbers::pi / 180;

constexpr double kaaba_longitude = 39.8261167;
constexpr double kaaba_latitude = 21.42263;

constexpr int band_width = 10;
constexpr int band_count = 360 / band_width;

const QColor paper(0xFF, 0xFF, 0xFF);
const QColor number_red(0xC4, 0x00, 0x1A);
const QColor coast_colour(0x26, 0x32, 0x3A);
const QColor border_colour(0x26, 0x32, 0x3A, 70);
const QColor frame_colour(0x55, 0x5F, 0x66);

/// Direction of the great circle to the Kaaba, degrees from true North through East, 0 to below 360.
double qiblah_direction(double longitude, double latitude) {
    const double difference = (kaaba_longitude - longitude) * degree;
    const double kaaba = kaaba_latitude * degree;
    const double place = latitude * degree;
    const double east = std::cos(kaaba) * std::sin(difference);
    const double north =
        std::sin(kaaba) * std::cos(place) - std::cos(kaaba) * std::sin(place) * std::cos(difference);
    const double direction = std::atan2(east, north) / degree;
    return direction < 0 ? direction + 360 : direction;
}

/// The band around the multiple of 10 degrees that is nearest to the direction.
std::size_t band_of(double direction) {
    return static_cast<std::size_t>(std::lround(direction / band_width)) % band_count;
}

/// The colour of an OKLCH triple (Ottosson, A perceptual color space for image processing, 2020).
QColor colour_of(double lightness, double chroma, double hue) {
    const double a = chroma * std::cos(hue * degree);
    const double b = chroma * std::sin(hue * degree);
    const double l = std::pow(lightness + 0.3963377774 * a + 0.2158037573 * b, 3);
    const double m = std::pow(lightness - 0.1055613458 * a - 0.0638541728 * b, 3);
    const double s = std::pow(lightness - 0.0894841775 * a - 1.2914855480 * b, 3);
    const auto encoded = [](double linear) {
        const double part = std::clamp(linear, 0.0, 1.0);
        return static_cast<float>(part <= 0.0031308 ? 12.92 * part : 1.055 * std::pow(part, 1 / 2.4) - 0.055);
    };
    return QColor::fromRgbF(encoded(4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s),
                            encoded(-1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s),
                            encoded(-0.0041960863 * l - 0.7034186147 * m + 1.7076147010 * s));
}

using BandColours = std::array<QColor, band_count>;

/// The hue goes once around with the direction; neighbours differ in lightness too, so that nothing is told
/// by hue alone.
BandColours band_colours(double lightness, double chroma) {
    BandColours colours;
    for (int band = 0; band < band_count; ++band) {
        const double step = band % 2 == 0 ? 0.032 : -0.032;
        colours[static_cast<std::size_t>(band)] =
            colour_of(lightness + step, chroma, 25.0 + band * band_width);
    }
    return colours;
}

/// The mean colour of a pixel's bands, from a grid of points inside it.
QRgb pixel_colour(int column, int row, const BandColours& colours) {
    constexpr int points = 4;
    std::array<int, 3> sum{};
    for (int point = 0; point < points * points; ++point) {
        const int across = point % points;
        const int down = point / points;
        const double x = column + (across + 0.5) / points;
        const double y = row + (down + 0.5) / points;
        const double direction = qiblah_direction((x - map.centre_x) / scale, (map.centre_y - y) / scale);
        const QColor& colour = colours[band_of(direction)];
        sum[0] += colour.red();
        sum[1] += colour.green();
        sum[2] += colour.blue();
    }
    const auto mean = [](int total) { return (total + points * points / 2) / (points * points); };
    return qRgb(mean(sum[0]), mean(sum[1]), mean(sum[2]));
}

QImage draw_bands(const BandColours& colours) {
    QImage picture(width, height, QImage::Format_RGB32);
    for (int row = 0; row < height; ++row) {
        for (int column = 0; column < width; ++column) {
            picture.setPixel(column, row, pixel_colour(column, row, colours));
        }
    }
    return picture;
}

QRectF map_area() {
    return {map.point(-180, 90), map.point(180, -90)};
}

void draw_kaaba(QPainter& painter) {
    const QPointF place = map.point(kaaba_longitude, kaaba_latitude);
    painter.setPen(QPen(Qt::white, 1.2));
    painter.setBrush(QColor(0x10, 0x10, 0x10));
    painter.drawRect(QRectF(place - QPointF(3.5, 3.5), QSizeF(7, 7)));
}

void draw_map(QPainter& painter, const WorldLines& world) {
    painter.setClipRect(map_area());
    painter.drawImage(0, 0, draw_bands(band_colours(0.90, 0.055)));
    painter.fillPath(world.land(map), QBrush(draw_bands(band_colours(0.79, 0.095))));
    painter.strokePath(world.border_path(map),
                       QPen(border_colour, 0.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.strokePath(world.coast(map), QPen(coast_colour, 0.7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    draw_kaaba(painter);
    painter.setClipping(false);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(frame_colour, 1));
    painter.drawRect(map_area().adjusted(-0.5, -0.5, 0.5, 0.5));
}

enum class Pole { north, south };

/// Writes a band's number at each place where the middle of the band meets a pole: where the band lies across
/// the 180th meridian that is at both sides of the picture.
void draw_number(QPainter& painter, int direction, Pole pole) {
    constexpr double tick = 5;
    constexpr double gap = 9;
    constexpr double overhang = 0.5; // degrees
    const QFontMetricsF metrics(painter.font());
    const QString text = QString::number(direction);
    const bool is_north = pole == Pole::north;
    const double edge = map.y(is_north ? 90 : -90);
    const double baseline = is_north ? edge - gap : edge + gap + metrics.capHeight();
    const double longitude = is_north ? kaaba_longitude - 180 + direction : kaaba_longitude - direction;
    for (const double turn : {-360.0, 0.0, 360.0}) {
        if (std::abs(longitude + turn) > 180 + overhang) {
            continue;
        }
        const double x = map.x(longitude + turn);
        painter.setPen(QPen(frame_colour, 1));
        painter.drawLine(QPointF(x, edge), QPointF(x, is_north ? edge - tick : edge + tick));
        painter.setPen(number_red);
        painter.drawText(QPointF(x - metrics.horizontalAdvance(text) / 2, baseline), text);
    }
}

/// At a pole the direction changes by one degree with each degree of longitude, so every band has the same
/// width there and meets each of the two edges once.
void draw_numbers(QPainter& painter) {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setStretch(QFont::SemiCondensed);
    font.setPixelSize(12);
    font.setBold(true);
    painter.setFont(font);
    for (int direction = 0; direction < 360; direction += band_width) {
        draw_number(painter, direction, Pole::north);
        draw_number(painter, direction, Pole::south);
    }
}

QImage draw(const WorldLines& world) {
    QImage picture(width, height, QImage::Format_RGB32);
    picture.fill(paper);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    draw_map(painter, world);
    draw_numbers(painter);
    return picture;
}

} // namespace
} // namespace halvane

int main(int argc, char* argv[]) {
    return halvane::draw_world_picture(argc, argv, halvane::draw);
}
