// SPDX-License-Identifier: MIT
// The page of a month as it is seen: painted into pictures whose pixels are looked at.
#include "hijri/monthgrid.h"
#include "hijri/monthpainter.h"
#include "tests/hijri/monthsofrule.h"
#include "timetable/pageframe.h"
#include "timetable/timetableplaces.h"

#include <QImage>
#include <QPainter>
#include <memory>
#include <string>

namespace halvane {
namespace {

constexpr double dots_per_millimetre = 200 / 25.4;
constexpr double margin = 15; // [mm]

// --- The Moon ---

QImage moon(Phase phase, bool mirrored) {
    constexpr int size = 201;
    QImage image(size, size, QImage::Format_RGB32);
    image.fill(Qt::red);
    QPainter painter(&image);
    paint_moon(painter, QPointF(size / 2.0, size / 2.0), 90, phase, mirrored);
    return image;
}

bool is_lit(const QImage& image, int x) {
    return image.pixel(x, image.height() / 2) == qRgb(255, 255, 255);
}

TEST(PaintedMoon, IsLitAtTheRightBeforeTheFullMoonAndSouthOfTheEquatorAtTheLeft) {
    constexpr int left = 60;
    constexpr int right = 140;
    for (const bool mirrored : {false, true}) {
        EXPECT_EQ(is_lit(moon(Phase::first_quarter, mirrored), right), !mirrored);
        EXPECT_EQ(is_lit(moon(Phase::first_quarter, mirrored), left), mirrored);
        EXPECT_EQ(is_lit(moon(Phase::last_quarter, mirrored), right), mirrored);
        EXPECT_EQ(is_lit(moon(Phase::last_quarter, mirrored), left), !mirrored);
        for (const int x : {left, right}) {
            EXPECT_TRUE(is_lit(moon(Phase::full_moon, mirrored), x));
            EXPECT_FALSE(is_lit(moon(Phase::new_moon, mirrored), x));
        }
    }
}

// --- The page ---

class MonthPages : public MonthsOfRule {
protected:
    static MonthSheet sheet_of(const char* rule, int year, int month) {
        NoProgress progress;
        return month_sheet(loaded_theory(), settings_of(rule), HijriMonthNumber::of(year, month),
                           given_place({"Amman", 31.95, 35.93, 0, "", 3}), progress)
            .value();
    }

    static QImage painted(const PaintedPages& pages, int number) {
        const QSizeF size = paper_size(pages.paper) * dots_per_millimetre;
        QImage image(size.toSize(), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        pages.paint(painter, QRectF(image.rect()), number);
        return image;
    }
    static QImage painted(const MonthSheet& sheet, const MonthPage& page) {
        return painted(painted_pages(std::make_shared<const MonthSheet>(sheet), page), 1);
    }

    /// Where dots of a colour, or of any but white, lie.
    template <class Wanted>
    static QRect place_of(const QImage& image, const Wanted& is_wanted) {
        QRect place;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (is_wanted(image.pixel(x, y)))
                    place |= QRect(x, y, 1, 1);
        return place;
    }

    static void expect_margins(const QImage& image, const char* what) {
        const int blank = static_cast<int>((margin - 0.4) * dots_per_millimetre); // edges are smoothed
        const QRect ink = place_of(image, [](QRgb dot) { return dot != qRgb(255, 255, 255); });
        EXPECT_GE(ink.left(), blank) << what;
        EXPECT_GE(ink.top(), blank) << what;
        EXPECT_LE(ink.right(), image.width() - blank) << what;
        EXPECT_LE(ink.bottom(), image.height() - blank) << what;
        EXPECT_GT(ink.width(), image.width() / 2) << what;
    }
};

// Tabular Ramadan 1446 begins on Saturday 1 March 2025 and has 30 days: it reaches into six weeks.
TEST_F(MonthPages, KeepTheirMarginsWhateverIsToldOfAMonth) {
    MonthSheet sheet = sheet_of("tabular", 1446, 9);
    for (const bool full : {false, true})
        for (const PageLanguage language : {PageLanguage::english, PageLanguage::arabic, PageLanguage::both})
            for (const PaperSize paper : {PaperSize::a4, PaperSize::letter}) {
                if (full) {
                    sheet.month.announced_by = std::string(200, 'W') + " " + std::string(100, 'i');
                    sheet.month.notes = ~0U;
                    sheet.month.margin = MonthMargin{MonthMargin::Of::lag, 1, 20, "s"};
                }
                expect_margins(painted(sheet, {language, paper}), full ? "full" : "plain");
            }
}

TEST_F(MonthPages, BeginTheWeekAtTheRightInArabic) {
    const MonthSheet sheet = sheet_of("umm-al-qura", 1447, 9);
    const auto is_friday = [](QRgb dot) { return dot == PageColours::friday.rgb(); };
    const QImage english = painted(sheet, {PageLanguage::english, PaperSize::a4});
    const QImage arabic = painted(sheet, {PageLanguage::arabic, PaperSize::a4});
    const double column = (210 - 2 * margin) / 7;
    const auto middle = [&](const QImage& image) {
        return (place_of(image, is_friday).center().x() / dots_per_millimetre - margin) / column;
    };
    EXPECT_NEAR(middle(english), 5.5, 0.1) << "the sixth from the left";
    EXPECT_NEAR(middle(arabic), 1.5, 0.1) << "the sixth from the right";
}

TEST_F(MonthPages, OfAYearAreTwelve) {
    NoProgress progress;
    const auto sheets = std::make_shared<const std::vector<MonthSheet>>(
        month_sheets(loaded_theory(), settings_of("tabular"), HijriMonthNumber::of(1447, 1),
                     HijriMonthNumber::of(1447, 12), given_place({"Amman", 31.95, 35.93, 0, "", 3}), progress)
            .value());
    const PaintedPages pages = painted_pages(sheets, {});
    EXPECT_EQ(pages.count, 12);
    EXPECT_NE(painted(pages, 1), painted(pages, 2));
    EXPECT_EQ(document_title(*sheets, PageLanguage::english), "Muharram 1447 - Thul Hejjah 1447");
    EXPECT_EQ(document_title({sheets->front()}, PageLanguage::arabic), "محرم 1447");
}

} // namespace
} // namespace halvane
