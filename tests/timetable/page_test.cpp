// SPDX-License-Identifier: MIT
// The page of a month as it is seen: painted into pictures whose pixels are looked at.
#include "tests/timetable/writtensheet.h"
#include "timetable/pagepainter.h"
#include "timetable/pagetable.h"

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <ostream>

namespace halvane {
namespace {

constexpr double dots_per_millimetre = 200 / 25.4;
constexpr double margin = 15; // [mm]

int dots(double millimetres) {
    return static_cast<int>(millimetres * dots_per_millimetre);
}

QImage painted(const TimetableSheet& sheet, const PageSettings& page) {
    const QSizeF size = paper_size(page.paper) * dots_per_millimetre;
    QImage image(size.toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    paint_page(painter, QRectF(image.rect()), sheet, page, 1, 12);
    return image;
}

/// Where anything is painted.
QRect ink_of(const QImage& image, const QRect& within) {
    QRect ink;
    for (int y = within.top(); y <= within.bottom(); ++y)
        for (int x = within.left(); x <= within.right(); ++x)
            if (image.pixel(x, y) != qRgb(255, 255, 255))
                ink |= QRect(x, y, 1, 1);
    return ink;
}
QRect ink_of(const QImage& image) {
    return ink_of(image, image.rect());
}

bool is_colour(QRgb pixel, const QColor& colour) {
    constexpr int nearly = 6; // edges are smoothed
    return std::abs(qRed(pixel) - colour.red()) < nearly &&
           std::abs(qGreen(pixel) - colour.green()) < nearly &&
           std::abs(qBlue(pixel) - colour.blue()) < nearly;
}

/// How much of a line of pixels is of a colour.
double part_of_colour(const QImage& image, int y, const QColor& colour) {
    int count = 0;
    for (int x = 0; x < image.width(); ++x)
        count += is_colour(image.pixel(x, y), colour) ? 1 : 0;
    return static_cast<double>(count) / (image.width() - 2 * dots(margin));
}

/// Lines of pixels that are of a colour from margin to margin, but for the writing on them.
std::vector<int> lines_of_colour(const QImage& image, const QColor& colour) {
    std::vector<int> lines;
    for (int y = 0; y < image.height(); ++y)
        if (part_of_colour(image, y, colour) > 0.6)
            lines.push_back(y);
    return lines;
}

/// How many stretches of at least `least` neighbouring numbers there are.
long stretches(const std::vector<int>& numbers, int least) {
    long count = 0;
    int length = 0;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        length = i > 0 && numbers[i] == numbers[i - 1] + 1 ? length + 1 : 1;
        count += length == least ? 1 : 0;
    }
    return count;
}

/// A sheet without any text in its cells.
TimetableSheet empty_sheet() {
    TimetableSheet sheet = written_sheet();
    for (SheetRow& row : sheet.rows) {
        row.friday = row.hijri_month_begins = false;
        for (SheetCell& cell : row.cells)
            cell = {};
    }
    return sheet;
}

/// What two pictures differ in.
QRect difference(const QImage& one, const QImage& other) {
    QRect ink;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            if (one.pixel(x, y) != other.pixel(x, y))
                ink |= QRect(x, y, 1, 1);
    return ink;
}

struct PageCase {
    PageLanguage language;
    PaperSize paper;
    bool full;
};

void PrintTo(const PageCase& page, std::ostream* stream) {
    constexpr const char* names[] = {"English", "Arabic", "both"};
    *stream << names[static_cast<int>(page.language)] << (page.paper == PaperSize::a4 ? ", A4" : ", Letter")
            << (page.full ? ", full" : "");
}

class PageMargins : public testing::TestWithParam<PageCase> {};

TEST_P(PageMargins, StayBlankAndThePageIsFilled) {
    const PageCase& page = GetParam();
    const SheetSize size{page.full ? many_columns() : usual_columns(), page.full};
    const QImage image = painted(written_sheet(size), page_in(page.language, page.paper));
    const QRect ink = ink_of(image);
    const int allowed = dots(margin - 0.3);
    EXPECT_GE(ink.left(), allowed);
    EXPECT_GE(ink.top(), allowed);
    EXPECT_LE(ink.right(), image.width() - allowed);
    EXPECT_LE(ink.bottom(), image.height() - allowed);
    EXPECT_LE(ink.left(), dots(margin + 0.5));
    EXPECT_GE(ink.right(), image.width() - dots(margin + 0.5));
    EXPECT_GE(ink.bottom(), image.height() - dots(margin + 2));
}

std::vector<PageCase> page_cases() {
    std::vector<PageCase> cases;
    for (const PageLanguage language : {PageLanguage::english, PageLanguage::arabic, PageLanguage::both})
        for (const PaperSize paper : {PaperSize::a4, PaperSize::letter})
            for (const bool full : {false, true})
                cases.push_back({language, paper, full});
    return cases;
}

INSTANTIATE_TEST_SUITE_P(Pages, PageMargins, testing::ValuesIn(page_cases()));

TEST(Page, BeginsAtTheRightInArabic) {
    for (const PageLanguage language : {PageLanguage::english, PageLanguage::arabic, PageLanguage::both}) {
        const PageSettings page = page_in(language);
        TimetableSheet sheet = empty_sheet();
        sheet.columns.resize(2);
        for (SheetRow& row : sheet.rows)
            row.cells.resize(2);
        const QImage bare = painted(sheet, page);
        for (SheetRow& row : sheet.rows)
            row.cells[0].text = {"28", "28"};
        const QRect changed = difference(bare, painted(sheet, page));
        ASSERT_FALSE(changed.isEmpty());
        EXPECT_EQ(changed.center().x() > bare.width() / 2, language == PageLanguage::arabic);
    }
}

TEST(Page, HasTheHeadOfEachLanguageAtItsSide) {
    const auto change = [](const TwinWords& place) {
        const PageSettings page = page_in(PageLanguage::both);
        TimetableSheet sheet = written_sheet();
        sheet.place = {"A", "A"}; // the lines are as high as with another name
        const QImage one = painted(sheet, page);
        sheet.place = place;
        return difference(one, painted(sheet, page)).center().x() / dots_per_millimetre;
    };
    EXPECT_LT(change({"B", "A"}), margin + 10);
    EXPECT_GT(change({"A", "B"}), paper_size(PaperSize::a4).width() - margin - 10);
}

TEST(Page, SetsFridaysApartByTintAndWeight) {
    TimetableSheet sheet = empty_sheet();
    const PageSettings page = page_in(PageLanguage::english);
    const int much_of_row = dots(4); // rules between rows are thin
    EXPECT_EQ(stretches(lines_of_colour(painted(sheet, page), PageColours::friday), much_of_row), 0);
    sheet.rows[4].friday = sheet.rows[11].friday = true;
    EXPECT_EQ(stretches(lines_of_colour(painted(sheet, page), PageColours::friday), much_of_row), 2);

    // The same words on a Friday and on another day: those of Friday have more ink.
    sheet = empty_sheet();
    const auto dark_pixels = [&](bool friday) {
        sheet.rows[4].friday = friday;
        sheet.rows[4].cells[3].text = {"18:48", "18:48"};
        const QImage image = painted(sheet, page);
        long count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                count += qGray(image.pixel(x, y)) < 100 ? 1 : 0;
        return count;
    };
    EXPECT_GT(dark_pixels(true), dark_pixels(false) + 20);
}

TEST(Page, MarksTheRowWhereAHijriMonthBegins) {
    TimetableSheet sheet = empty_sheet();
    const PageSettings page = page_in(PageLanguage::english);
    const long before = stretches(lines_of_colour(painted(sheet, page), PageColours::green), 2);
    sheet.rows[17].hijri_month_begins = true;
    EXPECT_EQ(stretches(lines_of_colour(painted(sheet, page), PageColours::green), 2), before + 1);
}

TEST(Page, MarksTimesThatARuleMadeWithoutMovingThem) {
    for (const PageLanguage language : {PageLanguage::english, PageLanguage::arabic}) {
        const PageSettings page = page_in(language);
        TimetableSheet sheet = empty_sheet();
        for (SheetRow& row : sheet.rows)
            row.cells[3].text = {"05:15", "05:15"};
        sheet.rows[9].cells[3].marked = true; // its column has place for marks
        const QImage one = painted(sheet, page);
        sheet.rows[4].cells[3].marked = true;
        const QRect mark = difference(one, painted(sheet, page));
        EXPECT_GT(mark.width(), 0);
        EXPECT_LT(mark.width(), dots(2.5));
        EXPECT_LT(mark.height(), dots(2.5));
    }
}

TEST(Page, KeepsTheMarkOfATimeInBothLanguages) {
    const PageSettings page = page_in(PageLanguage::both);
    TimetableSheet sheet = empty_sheet();
    for (SheetRow& row : sheet.rows)
        row.cells[3].text = {"5:15 am", "5:15 ص"};
    sheet.rows[9].cells[3].marked = true;
    const QImage one = painted(sheet, page);
    sheet.rows[4].cells[3].marked = true;
    EXPECT_FALSE(difference(one, painted(sheet, page)).isEmpty());
}

TEST(Page, PutsTheFiguresOfAColumnBelowOneAnother) {
    TimetableSheet sheet = empty_sheet();
    const PageSettings page = page_in(PageLanguage::english);
    const QImage bare = painted(sheet, page);
    // The column is as wide as its widest cell, which stands in another row.
    sheet.rows[30].cells[4].text = {"10:44", "10:44"};
    const QImage widest = painted(sheet, page);
    const auto right_end = [&](const char* text) {
        TimetableSheet other = sheet;
        other.rows[3].cells[4].text = {text, text};
        return difference(widest, painted(other, page)).right();
    };
    EXPECT_FALSE(difference(bare, widest).isEmpty());
    EXPECT_NEAR(right_end("8:44"), right_end("10:44"), 1);
    EXPECT_NEAR(right_end("9:44"), right_end("20:44"), 1);
}

TEST(Page, IsTheSameAnywhereOnADevice) {
    const PageSettings page = page_in(PageLanguage::both);
    const TimetableSheet sheet = written_sheet();
    const QSizeF size = paper_size(page.paper) * 3;
    QImage alone(size.toSize(), QImage::Format_RGB32);
    alone.fill(Qt::white);
    QImage beside(alone.size() + QSize(200, 100), QImage::Format_RGB32);
    beside.fill(Qt::white);
    {
        QPainter painter(&alone);
        paint_page(painter, QRectF(QPointF(0, 0), size), sheet, page, 1, 1);
    }
    {
        QPainter painter(&beside);
        paint_page(painter, QRectF(QPointF(150, 50), size), sheet, page, 1, 1);
    }
    EXPECT_EQ(beside.copy(QRect(QPoint(150, 50), alone.size())), alone);
}

} // namespace
} // namespace halvane
