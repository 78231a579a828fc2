// SPDX-License-Identifier: MIT
#include "finemap/finesheet.h"
#include "finemap/mapgeometry.h"
#include "finemap/mappicturefiles.h"

#include <QImage>
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <map>
#include <string>

namespace halvane {
namespace {

/// A map of one zone, and a square island in its sea.
struct Island {
    FineMap map;
    WorldOutline world;
};

Island island(MapClass map_class, const char* criterion = "yallop-1997") {
    Island made;
    made.map.settings.criterion = catalogued_criterion(criterion);
    made.map.settings.window = {0, -20, 40, 20};
    made.map.settings.day = 2461089.5;
    made.map.settings.conjunction = 2461089;
    made.map.settings.step = 1;
    MapNode node;
    node.map_class = map_class;
    made.map.parts = {{0, -20, 1, 41, 41, std::vector<MapNode>(41 * 41, node)}};
    made.map.zones = {{map_class, {{{{0, -20}, {40, -20}, {40, 20}, {0, 20}}, {}}}}};
    made.world.rings = {{{{10, -10}, {30, -10}, {30, 10}, {10, 10}}, {10, -10, 30, 10}}};
    made.world.borders = {{{{10, 0}, {30, 0}}, {10, 0, 30, 0}}};
    return made;
}

constexpr int side = 800; // pixels of a map 40 degrees wide
constexpr double units = 20000;

QImage painted(const Island& made, const QRectF& visible = {0, 0, units, units}) {
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(side / units, side / units);
    FineMapPainter(made.map, made.world, {})
        .paint(painter, {made.map.settings.window, 0, 0, units, units}, visible);
    return image;
}

QColor at(const QImage& image, double longitude, double latitude) {
    return image.pixelColor(static_cast<int>(longitude * side / 40),
                            static_cast<int>((20 - latitude) * side / 40));
}

/// Relative luminance and its contrast. Source  Web Content Accessibility Guidelines 2.1, W3C (2018).
double luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& a, const QColor& b) {
    const double light = std::max(luminance(a), luminance(b));
    const double dark = std::min(luminance(a), luminance(b));
    return (light + 0.05) / (dark + 0.05);
}

/// A place of the map where neither a mark nor a line of the grid stands: the least changing around it.
QColor plain_colour(const QImage& image, double west, double south) {
    std::map<QRgb, int> counts;
    for (double longitude = west; longitude < west + 4; longitude += 0.05)
        for (double latitude = south; latitude < south + 4; latitude += 0.05)
            ++counts[at(image, longitude, latitude).rgb()];
    const auto most = std::max_element(counts.begin(), counts.end(),
                                       [](const auto& a, const auto& b) { return a.second < b.second; });
    return QColor(most->first);
}

class EveryClass : public testing::TestWithParam<int> {};

TEST_P(EveryClass, LandAndCoastAreSeenThroughTheZone) {
    const auto map_class = static_cast<MapClass>(GetParam());
    const Island made = island(map_class);
    const QImage image = painted(made);
    const QColor land = plain_colour(image, 12, 4);
    const QColor sea = plain_colour(image, 3, 4);
    EXPECT_NE(land, sea);
    const QColor zone = colour_of(style_of(*made.map.settings.criterion, map_class).colour);
    const auto over = [&zone](const ClassColour& ground) {
        const auto part = [](int above, int below) {
            return static_cast<int>(std::lround(zone_opacity * above + (1 - zone_opacity) * below));
        };
        return QColor(part(zone.red(), ground.red), part(zone.green(), ground.green),
                      part(zone.blue(), ground.blue));
    };
    for (const auto& [seen, wanted] : {std::pair(land, over(map_land)), std::pair(sea, over(map_sea))}) {
        EXPECT_NEAR(seen.red(), wanted.red(), 1);
        EXPECT_NEAR(seen.green(), wanted.green(), 1);
        EXPECT_NEAR(seen.blue(), wanted.blue(), 1);
    }
    double coast = 1;
    for (double longitude = 9.8; longitude < 10.2; longitude += 0.05)
        coast = std::max(coast, contrast(at(image, longitude, 3.3), land));
    EXPECT_GT(coast, 1.25) << "the coast above the zone";
}

INSTANTIATE_TEST_SUITE_P(Painter, EveryClass, testing::Range(0, static_cast<int>(map_classes)));

TEST(FineMapPainter, APartIsTheSameAsInTheWhole) {
    const Island made = island(MapClass::band_2);
    const QImage whole = painted(made);
    QImage part(side, side, QImage::Format_RGB32);
    part.fill(Qt::white);
    constexpr int top = 200;
    constexpr int bottom = 400;
    {
        QPainter painter(&part);
        painter.scale(side / units, side / units);
        FineMapPainter(made.map, made.world, {})
            .paint(painter, {made.map.settings.window, 0, 0, units, units},
                   {0, (top - 8) * units / side, units, (bottom - top + 16) * units / side});
    }
    int differences = 0;
    for (int y = top; y < bottom; ++y)
        for (int x = 0; x < side; ++x)
            differences += whole.pixel(x, y) == part.pixel(x, y) ? 0 : 1;
    EXPECT_EQ(differences, 0);
    EXPECT_EQ(part.pixelColor(side / 2, side - 5), QColor(Qt::white)) << "painted beyond what was wanted";
}

TEST(FineMapPainter, MarksStandInTheZone) {
    const Island plain = island(MapClass::band_5);
    const QImage image = painted(plain);
    const QColor sea = plain_colour(image, 3, 4);
    int dark = 0;
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side / 5; ++x)
            dark += luminance(image.pixelColor(x, y)) < 0.3 * luminance(sea) ? 1 : 0;
    EXPECT_GT(dark, 100);
}

TEST(MapGeometry, ClipsLinesAndRings) {
    const QRectF room(0, 0, 10, 10);
    QPainterPath path;
    add_clipped_line(path, QPolygonF({{-5, 5}, {15, 5}, {15, 20}, {5, 20}, {5, 5}}), room);
    ASSERT_EQ(path.elementCount(), 4);
    EXPECT_EQ(QPointF(path.elementAt(0)), QPointF(0, 5));
    EXPECT_EQ(QPointF(path.elementAt(1)), QPointF(10, 5));
    EXPECT_EQ(QPointF(path.elementAt(2)), QPointF(5, 10));
    EXPECT_EQ(QPointF(path.elementAt(3)), QPointF(5, 5));
    const QPolygonF ring = clipped_ring(QPolygonF({{-5, -5}, {5, -5}, {5, 5}, {-5, 5}}), room);
    EXPECT_EQ(ring.boundingRect(), QRectF(0, 0, 5, 5));
    EXPECT_TRUE(clipped_ring(QPolygonF({{20, 20}, {30, 20}, {30, 30}}), room).isEmpty());
}

TEST(MapPictures, APngOfStripsIsThePicturePaintedAtOnce) {
    const Island made = island(MapClass::band_3);
    MapDocument document;
    document.page = [&made](int) { return MapPage{{made.map}, std::nullopt}; };
    document.width = 3600; // several strips
    std::string bytes;
    draw_maps(document, made.world, MapFormat::png, [&bytes](std::string_view more) { bytes += more; });
    const QImage image =
        QImage::fromData(QByteArray::fromStdString(bytes), "PNG").convertToFormat(QImage::Format_RGB32);
    const FineSheet sheet({&made.map}, made.world, {}, std::nullopt);
    const QSizeF size = sheet.natural_size();
    ASSERT_EQ(image.width(), 3600);
    ASSERT_EQ(image.height(), std::lround(3600 * size.height() / size.width()));
    QImage whole(image.size(), QImage::Format_RGB32);
    {
        QPainter painter(&whole);
        painter.scale(3600 / size.width(), 3600 / size.width());
        sheet.paint(painter, size, {QPointF(0, 0), size});
    }
    long differences = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QColor a = image.pixelColor(x, y);
            const QColor b = whole.pixelColor(x, y);
            differences += std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) > 24 ? 1 : 0;
        }
    EXPECT_LT(differences, image.width() * image.height() / 100000);
}

} // namespace
} // namespace halvane
