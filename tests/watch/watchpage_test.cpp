// SPDX-License-Identifier: MIT
// The page of a watch as it is seen: painted into pictures whose pixels are looked at.
#include "tests/watch/watches.h"
#include "timetable/pageframe.h"
#include "watch/crescentfigure.h"
#include "watch/skychart.h"
#include "watch/watchpainter.h"
#include "watch/watchpaper.h"

#include <QImage>
#include <QPainter>
#include <cmath>
#include <numbers>

namespace halvane {
namespace {

constexpr double degree = std::numbers::pi / 180;
constexpr double dots_per_millimetre = 200 / 25.4;
constexpr double margin = 15; // [mm]

// --- The crescent ---

/// How much of a disc is lit, and where the middle of the lit part is, by counting dots.
struct CountedCrescent {
    double fraction = 0;
    double right = 0; ///< of the disc's middle [radii]
    double up = 0;
};

CountedCrescent counted(double phase_angle, double zenith_angle) {
    constexpr int size = 601;
    constexpr int middle = size / 2;
    constexpr double radius = 290;
    const QPainterPath path = lit_part(radius, phase_angle, zenith_angle);
    CountedCrescent result;
    double lit = 0;
    double disc = 0;
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x) {
            const QPointF point(x - middle, y - middle);
            if (point.x() * point.x() + point.y() * point.y() > radius * radius)
                continue;
            ++disc;
            if (!path.contains(point))
                continue;
            ++lit;
            result.right += point.x() / radius;
            result.up -= point.y() / radius;
        }
    result.fraction = lit / disc;
    result.right /= lit;
    result.up /= lit;
    return result;
}

TEST(LitPart, IsAsLargeAsTheIlluminatedFraction) {
    // Meeus, Astronomical Algorithms, chapter "Illuminated Fraction of the Moon's Disk": k = (1 + cos i) / 2
    // is the part of the disc's area.
    for (const double phase_angle : {165.0, 150.0, 120.0, 90.0, 60.0})
        EXPECT_NEAR(counted(phase_angle, 180).fraction, (1 + std::cos(phase_angle * degree)) / 2, 0.004)
            << phase_angle;
}

TEST(LitPart, LiesTowardsItsAngleFromTheZenith) {
    const CountedCrescent down = counted(150, 180);
    EXPECT_NEAR(down.right, 0, 0.005);
    EXPECT_LT(down.up, -0.7);
    const CountedCrescent left = counted(150, 90); // the angle grows from the zenith to the left
    EXPECT_LT(left.right, -0.7);
    EXPECT_NEAR(left.up, 0, 0.005);
    const CountedCrescent lower_right = counted(150, 225);
    EXPECT_NEAR(lower_right.right, -lower_right.up, 0.005);
    EXPECT_GT(lower_right.right, 0.5);
}

// --- The pages ---

class WatchPages : public WatchTest {
protected:
    static PaintedPages pages_of(const char* place, const DateNumbers& date, const WatchPage& page) {
        return painted_pages(std::make_shared<const CrescentWatch>(watch_at(place, date)), page);
    }

    static QImage painted(const PaintedPages& pages, int number) {
        const QSizeF size = paper_size(pages.paper) * dots_per_millimetre;
        QImage image(size.toSize(), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        pages.paint(painter, QRectF(image.rect()), number);
        return image;
    }

    /// Where anything is painted.
    static QRect ink_of(const QImage& image) {
        QRect ink;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixel(x, y) != qRgb(255, 255, 255))
                    ink |= QRect(x, y, 1, 1);
        return ink;
    }

    static void expect_margins(const QImage& image) {
        const int blank = static_cast<int>((margin - 0.4) * dots_per_millimetre); // edges are smoothed
        const QRect ink = ink_of(image);
        EXPECT_GE(ink.left(), blank);
        EXPECT_GE(ink.top(), blank);
        EXPECT_LE(ink.right(), image.width() - blank);
        EXPECT_LE(ink.bottom(), image.height() - blank);
        EXPECT_GT(ink.width(), image.width() / 2);
    }
};

TEST_F(WatchPages, OfACommonWatchAreOne) {
    for (const char* place : {"Amman", "Makkah", "Cape Town", "Tromso"})
        for (const Language language : languages)
            EXPECT_EQ(pages_of(place, {2026, 2, 18}, {language, PaperSize::a4}).count, 1) << place;
}

TEST_F(WatchPages, LeaveTheMarginsBlank) {
    for (const Language language : languages)
        for (const PaperSize paper : {PaperSize::a4, PaperSize::letter})
            for (const DateNumbers& date :
                 {DateNumbers{2026, 2, 16}, DateNumbers{2026, 2, 18}, DateNumbers{2026, 2, 21}}) {
                const PaintedPages pages = pages_of("Amman", date, {language, paper});
                for (int number = 1; number <= pages.count; ++number)
                    expect_margins(painted(pages, number));
            }
}

TEST_F(WatchPages, OfALongWatchAreMore) {
    const PaintedPages pages = pages_of("London", {2026, 2, 21}, {});
    EXPECT_EQ(pages.count, 2);
    expect_margins(painted(pages, 2));
}

TEST_F(WatchPages, HoldALongName) {
    WatchSettings settings = settings_at("Amman", {2026, 2, 18});
    settings.place.location.name =
        "A hill with a name that is so long that no line of the head of a page can hold it";
    const PaintedPages pages = painted_pages(std::make_shared<const CrescentWatch>(watch_at(settings)), {});
    expect_margins(painted(pages, 1));
}

TEST_F(WatchPages, AreAPictureOfTheirWidth) {
    const std::string bytes = png_of(watch_at("London", {2026, 2, 21}), {}, 500);
    const QImage image = QImage::fromData(QByteArray::fromStdString(bytes), "PNG");
    EXPECT_EQ(image.width(), 500);
    EXPECT_EQ(image.height(), 2 * 707); // A4, two pages
    EXPECT_NEAR(image.dotsPerMeterX(), 500 / 0.210, 1);
}

/// The length of a degree of both axes, by the grid of hairlines that the chart paints.
TEST_F(WatchPages, ChartHasOneScale) {
    const CrescentWatch watch = watch_at("Amman", {2026, 2, 18});
    QImage image(2400, 1600, QImage::Format_RGB32);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        painter.scale(0.2, 0.2);
        paint_sky_chart(painter, QRectF(500, 500, 11000, 7000), watch, Language::english);
    }
    const auto is_line = [&image](int x, int y) { return image.pixel(x, y) != qRgb(255, 255, 255); };
    // Above the horizon only: below it the ground is tinted. A line is there in all of these rows, or
    // columns.
    const auto lines = [](int from, int to, const auto& holds) {
        std::vector<int> found;
        for (int i = from; i < to; ++i)
            if (holds(i) && (found.empty() || i > found.back() + 5))
                found.push_back(i);
        return found;
    };
    const std::vector<int> upright = lines(320, 2280, [&](int x) {
        for (int y = 105; y < 160; ++y)
            if (!is_line(x, y))
                return false;
        return true;
    });
    const std::vector<int> level = lines(110, 500, [&](int y) {
        for (int x = 340; x < 400; ++x)
            if (!is_line(x, y))
                return false;
        return true;
    });
    ASSERT_GE(upright.size(), 3U);
    ASSERT_GE(level.size(), 2U);
    EXPECT_NEAR(upright[2] - upright[1], level[1] - level[0], 2);
}

} // namespace
} // namespace halvane
