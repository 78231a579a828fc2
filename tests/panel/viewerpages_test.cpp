// SPDX-License-Identifier: MIT
#include "panel/textline.h"
#include "panel/viewerpages.h"
#include "tests/panel/panelharness.h"

#include <QBuffer>
#include <QPageLayout>
#include <QPaintEngine>
#include <QPdfWriter>
#include <algorithm>
#include <cmath>

namespace halvane {
namespace {

/// One text as it was put on a page.
struct Placed {
    int page = 0;
    double x = 0;
    double y = 0; ///< of the letters' foot
    QFont font;
    QString text;
};

class PlaceEngine : public QPaintEngine {
public:
    PlaceEngine() : QPaintEngine(QPaintEngine::AllFeatures) {}
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState& changed) override {
        if (changed.state().testFlag(DirtyTransform))
            transform_ = changed.transform();
    }
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
    void drawTextItem(const QPointF& place, const QTextItem& item) override {
        const QPointF at = transform_.map(place);
        placed.push_back({page, at.x(), at.y(), item.font(), item.text()});
    }
    Type type() const override { return User; }

    int page = 1;
    std::vector<Placed> placed;

private:
    QTransform transform_;
};

/// Paper of A4 that remembers what was put where; nothing is written to a file.
class Paper : public QPdfWriter {
public:
    Paper() : QPdfWriter(QStringLiteral("/dev/null")) { setResolution(dots); }
    bool newPage() override {
        ++engine_.page;
        return true;
    }
    const std::vector<Placed>& placed() const { return engine_.placed; }
    int pages() const { return engine_.page; }
    /// Of the page within its margins.
    QSize room() const { return pageLayout().paintRectPixels(dots).size(); }

    static constexpr int dots = 600; // per inch

protected:
    QPaintEngine* paintEngine() const override { return &engine_; }

private:
    mutable PlaceEngine engine_;
};

/// The texts of a page from its top down: those of one height are one line, from left to right.
struct Line {
    double y = 0;
    double left = 0;
    QString text;
};

std::vector<Line> lines_of(const Paper& paper, int page) {
    std::vector<Placed> placed;
    for (const Placed& text : paper.placed())
        if (text.page == page)
            placed.push_back(text);
    std::stable_sort(placed.begin(), placed.end(), [](const Placed& a, const Placed& b) {
        return std::lround(a.y) != std::lround(b.y) ? a.y < b.y : a.x < b.x;
    });
    std::vector<Line> lines;
    for (const Placed& text : placed) {
        if (lines.empty() || std::lround(lines.back().y) != std::lround(text.y))
            lines.push_back({text.y, text.x, QString()});
        lines.back().text += text.text;
    }
    return lines;
}

class PagesTest : public PanelTest {
protected:
    static QString table(int rows) {
        QString text = QStringLiteral("the head\n\n  Date      Rise\n  ----\n\n");
        for (int row = 0; row < rows; ++row)
            text += QStringLiteral("%1 06:00\n").arg(row, 10, 10, QLatin1Char('0'));
        return text;
    }
    PrintedText printed(const QString& text) {
        text_ = KeptText::of_words(text);
        return {text_.get(), true, QStringLiteral("Prayer Times - Amman"), 2, 3, Language::english};
    }
    std::shared_ptr<const KeptText> text_;
};

TEST_F(PagesTest, TheTextStandsBelowTheHeadAndWithinThePage) {
    Paper paper;
    const int pages = print_pages(paper, printed(table(400)));
    ASSERT_GE(pages, 4);
    EXPECT_EQ(paper.pages(), pages);
    const double line = QFontMetricsF(QApplication::font(), &paper).lineSpacing();
    for (int page = 1; page <= pages; ++page) {
        const std::vector<Line> lines = lines_of(paper, page);
        ASSERT_GE(lines.size(), 3U);
        EXPECT_TRUE(lines[0].text.contains(QStringLiteral("Prayer Times - Amman"))) << page;
        EXPECT_GT(lines[0].y, 0) << page;
        EXPECT_LT(lines[0].y, line) << "the head is the first line";
        EXPECT_GT(lines[1].y - lines[0].y, line * 0.9) << "printed over the head of page " << page;
        for (std::size_t i = 2; i < lines.size(); ++i)
            EXPECT_GT(lines[i].y, lines[i - 1].y + 1);
        EXPECT_LT(lines.back().y, paper.room().height()) << page;
    }
    EXPECT_TRUE(lines_of(paper, 1)[1].text.startsWith(QStringLiteral("the head")));
}

TEST_F(PagesTest, EveryPageTellsItsNumberAndTheirCount) {
    Paper paper;
    const int pages = print_pages(paper, printed(table(400)));
    for (int page = 1; page <= pages; ++page)
        EXPECT_TRUE(
            lines_of(paper, page)[0].text.endsWith(QStringLiteral("Page %1 of %2").arg(page).arg(pages)))
            << lines_of(paper, page)[0].text.toStdString();
}

TEST_F(PagesTest, TheTitleRowsStandOverTheColumnsOfEveryPage) {
    Paper paper;
    const int pages = print_pages(paper, printed(table(400)));
    int titles = 0;
    QStringList rows;
    for (int page = 1; page <= pages; ++page)
        for (const Line& line : lines_of(paper, page)) {
            titles += line.text.contains(QStringLiteral("Date")) ? 1 : 0;
            if (line.text.contains(QStringLiteral("06:00")))
                rows << line.text.left(10);
        }
    EXPECT_EQ(titles, pages);
    ASSERT_EQ(rows.size(), 400) << "every row once";
    for (int row = 0; row < 400; ++row)
        EXPECT_EQ(rows[row], QStringLiteral("%1").arg(row, 10, 10, QLatin1Char('0')));
    EXPECT_TRUE(lines_of(paper, 2)[1].text.contains(QStringLiteral("Date")));
    EXPECT_TRUE(lines_of(paper, 2)[2].text.contains(QStringLiteral("----")));
}

TEST_F(PagesTest, MarginsAreFifteenMillimetresAndWiderOnesStay) {
    QBuffer buffer;
    ASSERT_TRUE(buffer.open(QIODevice::WriteOnly));
    QPdfWriter writer(&buffer);
    writer.setPageMargins(QMarginsF(5, 5, 30, 5), QPageLayout::Millimeter);
    EXPECT_EQ(print_pages(writer, printed(table(1))), 1);
    const QMarginsF margins = writer.pageLayout().margins(QPageLayout::Millimeter);
    EXPECT_NEAR(margins.left(), 15, 0.2);
    EXPECT_NEAR(margins.top(), 15, 0.2);
    EXPECT_NEAR(margins.right(), 30, 0.2);
    EXPECT_NEAR(margins.bottom(), 15, 0.2);
}

TEST_F(PagesTest, OnlyTheAskedPagesArePrinted) {
    Paper paper;
    const PrintedText text = printed(table(400));
    const int all = print_pages(paper, text);
    Paper part;
    EXPECT_EQ(print_pages(part, text, {2, 3}), all);
    EXPECT_EQ(part.pages(), 2);
    EXPECT_TRUE(lines_of(part, 1)[0].text.contains(QStringLiteral("Page 2 of ")));
    EXPECT_EQ(lines_of(part, 1).back().text, lines_of(paper, 2).back().text);
    EXPECT_EQ(lines_of(part, 2).back().text, lines_of(paper, 3).back().text);
}

TEST_F(PagesTest, AWideTableGetsSmallerTypeAndAnEndlessLineGoesOnInTheNext) {
    Paper paper;
    print_pages(paper, printed(QString(141, u'8') + u'\n' + QString(400, u'9') + u'\n'));
    const std::vector<Line> lines = lines_of(paper, 1);
    int nines = 0;
    for (const Line& line : lines) {
        nines += static_cast<int>(line.text.count(u'9'));
        if (line.text.contains(u'8')) {
            EXPECT_EQ(line.text.count(u'8'), 141);
        }
    }
    EXPECT_EQ(nines, 400) << "nothing is lost at the paper's edge";
    EXPECT_EQ(lines.size(), 1U + 1U + 3U);
    const QFont font = paper.placed().back().font;
    EXPECT_LE(QFontMetricsF(font, &paper).horizontalAdvance(QString(141, u'8')), paper.room().width());
}

TEST_F(PagesTest, ALongTitleIsShortenedAndLeavesTheNumberItsPlace) {
    Paper paper;
    PrintedText text = printed(table(1));
    text.title = QStringLiteral("Prayer Times - ") + QString(190, u'W');
    print_pages(paper, text);
    const QString head = lines_of(paper, 1)[0].text;
    EXPECT_TRUE(head.contains(u'…'));
    EXPECT_TRUE(head.endsWith(QStringLiteral("Page 1 of 1")));
}

TEST_F(PagesTest, InArabicTheHeadRunsFromTheRight) {
    Paper paper;
    PrintedText text = printed(table(1));
    text.title = QStringLiteral("مواقيت الصلاة");
    text.language = Language::arabic;
    print_pages(paper, text);
    double title = 0;
    double number = 0;
    for (const Placed& placed : paper.placed()) {
        if (placed.text.contains(QStringLiteral("مواقيت")))
            title = placed.x;
        if (placed.text.contains(QStringLiteral("صفحة")))
            number = placed.x;
    }
    EXPECT_GT(title, paper.room().width() / 2.0);
    EXPECT_LT(number, paper.room().width() / 2.0);
    EXPECT_GT(number, 0);
}

class GivesUp : public Progress {
public:
    void percent(double p) override { last = p; }
    bool yield() override { return ++yields < 3; }
    double last = -1;
    int yields = 0;
};

TEST_F(PagesTest, ALongPrintTellsItsProgressAndCanBeGivenUp) {
    Paper paper;
    GivesUp progress;
    EXPECT_EQ(print_pages(paper, printed(table(2000)), {}, &progress), 0);
    EXPECT_EQ(progress.yields, 3);
    EXPECT_GT(progress.last, 0);
    EXPECT_EQ(paper.pages(), 2);
}

} // namespace
} // namespace halvane
