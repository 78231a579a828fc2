// SPDX-License-Identifier: MIT
#include "panel/textview.h"
#include "panel/viewer.h"
#include "tests/panel/panelharness.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QScrollBar>
#include <QWheelEvent>

namespace halvane {
namespace {

class TextViewTest : public PanelTest {
protected:
    static std::shared_ptr<const KeptText> rows(int count) {
        QString text;
        for (int row = 0; row < count; ++row)
            text += QStringLiteral("row %1 of the table\n").arg(row);
        return KeptText::of_words(text);
    }
    static void press(TextView& view, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&view, key, modifiers);
    }
};

TEST_F(TextViewTest, TheCursorGoesByTheKeys) {
    TextView view(rows(500), TextView::Kind::table, Language::english);
    view.resize(400, 300);
    view.show();
    press(view, Qt::Key_Right);
    EXPECT_EQ(view.cursor(), (TextPlace{0, 1}));
    press(view, Qt::Key_Down);
    EXPECT_EQ(view.cursor(), (TextPlace{1, 1}));
    press(view, Qt::Key_End);
    EXPECT_EQ(view.cursor(), (TextPlace{1, 18}));
    press(view, Qt::Key_Right);
    EXPECT_EQ(view.cursor(), (TextPlace{2, 0}));
    press(view, Qt::Key_Left);
    EXPECT_EQ(view.cursor(), (TextPlace{1, 18}));
    press(view, Qt::Key_Home);
    EXPECT_EQ(view.cursor(), (TextPlace{1, 0}));
    press(view, Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(view.cursor(), (TextPlace{1, 4}));
    press(view, Qt::Key_PageDown);
    EXPECT_EQ(view.cursor(), (TextPlace{1 + view.whole_lines(), 4}));
    EXPECT_EQ(view.top_line(), view.whole_lines());
    press(view, Qt::Key_PageUp);
    EXPECT_EQ(view.cursor(), (TextPlace{1, 4}));
    press(view, Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(view.cursor(), (TextPlace{500, 0}));
    EXPECT_EQ(view.top_line(), 501 - view.whole_lines()) << "the last line is in sight";
    press(view, Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(view.cursor(), TextPlace());
    EXPECT_EQ(view.top_line(), 0);
    EXPECT_FALSE(view.has_selection());
}

TEST_F(TextViewTest, ShiftSelectsAndControlCCopies) {
    TextView view(rows(5), TextView::Kind::table, Language::english);
    view.show();
    press(view, Qt::Key_Down, Qt::ShiftModifier);
    press(view, Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(view.selected_text(), QStringLiteral("row 0 of the table\nr"));
    press(view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("row 0 of the table\nr"));
    press(view, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(view.selected_text(), view.text().between({}, view.text().end()));
    press(view, Qt::Key_Up);
    EXPECT_FALSE(view.has_selection());
}

TEST_F(TextViewTest, InALineFromTheRightTheArrowsGoAsTheyPoint) {
    TextView view(KeptText::of_words(QStringLiteral("مواقيت الصلاة\n")), TextView::Kind::prose,
                  Language::arabic);
    view.show();
    press(view, Qt::Key_Left);
    EXPECT_EQ(view.cursor(), (TextPlace{0, 1}));
    press(view, Qt::Key_Right);
    EXPECT_EQ(view.cursor(), (TextPlace{0, 0}));
}

TEST_F(TextViewTest, TheMouseSelectsFromWhereItIsPressed) {
    TextView view(rows(50), TextView::Kind::table, Language::english);
    view.resize(500, 300);
    view.show();
    const QFontMetricsF metrics(view.font());
    const int row = static_cast<int>(std::ceil(metrics.lineSpacing()));
    const QPoint from(2, row / 2);
    const QPoint to(2, 2 * row + row / 2);
    QTest::mousePress(view.viewport(), Qt::LeftButton, Qt::NoModifier, from);
    QTest::mouseMove(view.viewport(), to);
    QMouseEvent move(QEvent::MouseMove, to, view.viewport()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(view.viewport(), &move);
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, Qt::NoModifier, to);
    EXPECT_EQ(view.anchor(), TextPlace());
    EXPECT_EQ(view.cursor(), (TextPlace{2, 0}));
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, from);
    EXPECT_EQ(view.selected_text(), QStringLiteral("row"));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::ShiftModifier, to);
    EXPECT_EQ(view.cursor(), (TextPlace{2, 0}));
}

TEST_F(TextViewTest, AScreenReaderReadsTheLineOfTheCursor) {
    TextView view(rows(50), TextView::Kind::table, Language::english);
    view.show();
    press(view, Qt::Key_Down);
    press(view, Qt::Key_Right, Qt::ControlModifier);
    press(view, Qt::Key_Right, Qt::ShiftModifier);
    QAccessibleInterface* face = QAccessible::queryAccessibleInterface(&view);
    ASSERT_NE(face, nullptr);
    QAccessibleTextInterface* text = face->textInterface();
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->text(0, text->characterCount()), QStringLiteral("row 1 of the table"));
    EXPECT_EQ(text->cursorPosition(), 5);
    ASSERT_EQ(text->selectionCount(), 1);
    int start = -1;
    int end = -1;
    text->selection(0, &start, &end);
    EXPECT_EQ(start, 4);
    EXPECT_EQ(end, 5);
    EXPECT_EQ(text->offsetAtPoint(text->characterRect(7).center() - QPoint(1, 0)), 7);
    EXPECT_TRUE(face->state().readOnly);
}

TEST_F(TextViewTest, TheWheelScrollsAndWithControlZooms) {
    TextView view(rows(500), TextView::Kind::table, Language::english);
    view.resize(400, 300);
    view.show();
    int larger = 0;
    QObject::connect(&view, &TextView::larger, [&larger] { ++larger; });
    const auto turn = [&view](Qt::KeyboardModifiers modifiers, int angle) {
        QWheelEvent event(QPointF(9, 9), view.viewport()->mapToGlobal(QPointF(9, 9)), {}, {0, angle},
                          Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(view.viewport(), &event);
    };
    turn(Qt::NoModifier, -120);
    EXPECT_EQ(view.top_line(), QApplication::wheelScrollLines());
    turn(Qt::ControlModifier, 120);
    EXPECT_EQ(larger, 1);
    EXPECT_EQ(view.top_line(), QApplication::wheelScrollLines());
}

TEST_F(TextViewTest, ALongLineIsReachedByTheBar) {
    TextView view(KeptText::of_words(QString(300, u'x') + u'\n'), TextView::Kind::table, Language::english);
    view.resize(400, 300);
    view.show();
    EXPECT_GT(view.horizontalScrollBar()->maximum(), 0);
    press(view, Qt::Key_End);
    EXPECT_GT(view.horizontalScrollBar()->value(), 0);
    press(view, Qt::Key_Home);
    EXPECT_EQ(view.horizontalScrollBar()->value(), 0);
}

/// How many pixels of the view's picture differ from its paper, in the rows of pixels from `top` to `bottom`.
int ink(TextView& view, int top, int bottom) {
    const QImage picture = view.viewport()->grab().toImage();
    const QRgb paper = picture.pixel(picture.width() - 1, picture.height() - 1);
    int count = 0;
    for (int y = top; y < std::min(bottom, picture.height()); ++y)
        for (int x = 0; x < picture.width(); ++x)
            count += picture.pixel(x, y) != paper ? 1 : 0;
    return count;
}

TEST_F(TextViewTest, PaintsTheLinesOnTheScreen) {
    TextView view(KeptText::of_words(QStringLiteral("first\n\nthird\n")), TextView::Kind::table,
                  Language::english);
    view.resize(400, 300);
    view.show();
    view.clearFocus();
    const int row = static_cast<int>(std::ceil(QFontMetricsF(view.font()).lineSpacing()));
    EXPECT_GT(ink(view, 0, row), 20);
    EXPECT_EQ(ink(view, row + 1, 2 * row - 1), 0) << "the empty line";
    EXPECT_GT(ink(view, 2 * row, 3 * row), 20);
    EXPECT_EQ(ink(view, 4 * row, 300), 0);
    const int before = ink(view, 0, row);
    view.select({0, 0}, {0, 5});
    EXPECT_GT(ink(view, 0, row), before) << "the selection is marked";
}

TEST_F(TextViewTest, ColumnsOfProseStandBelowEachOther) {
    const LineStyle style(QApplication::font(), true);
    const auto x_of = [&style](const QString& text, int column) {
        QTextLayout layout;
        lay_out(layout, text, style, Qt::LeftToRight, 2000);
        EXPECT_EQ(layout.text().size(), text.size()) << "characters keep their places";
        return layout.lineAt(0).cursorToX(column);
    };
    const double column = x_of(QStringLiteral("  iii     beginning"), 10);
    EXPECT_DOUBLE_EQ(x_of(QStringLiteral("  WWW     sunrise"), 10), column);
    EXPECT_NEAR(column, 10 * style.column, 0.5);
}

TEST_F(TextViewTest, LinesFromTheRightBeginAtTheRightEdgeAndKeepTheirColumns) {
    const LineStyle style(QApplication::font(), true);
    constexpr double width = 2000;
    const auto x_of = [&style](const QString& text, int column) {
        QTextLayout layout;
        lay_out(layout, text, style, Qt::RightToLeft, width);
        return layout.lineAt(0).cursorToX(column);
    };
    EXPECT_NEAR(x_of(QStringLiteral("مواقيت"), 0), width, 0.5);
    EXPECT_NEAR(x_of(QStringLiteral("الفجر     بداية"), 10), width - 10 * style.column, 0.5);
    EXPECT_NEAR(x_of(QStringLiteral("ا         بداية"), 10), width - 10 * style.column, 0.5);
}

TEST_F(TextViewTest, AMarkOfTheSearchIsBroughtIntoSight) {
    put("results.out", rows(3000)->between({}, rows(3000)->end()).toStdString());
    Viewer viewer(QString::fromStdString(path("results.out")));
    viewer.show();
    enter(viewer, "txtfind", QStringLiteral("row 2999"));
    viewer.find_next();
    EXPECT_LE(viewer.view().top_line(), 2999);
    EXPECT_GT(viewer.view().top_line() + viewer.view().whole_lines(), 2999);
}

TEST_F(TextViewTest, EscapeStopsALongSearchBeforeItClosesTheWindow) {
    put("results.out", std::string(40000000, '\n'));
    Viewer viewer(QString::fromStdString(path("results.out")));
    viewer.show();
    enter(viewer, "txtfind", QStringLiteral("nowhere"));
    viewer.find_next();
    ASSERT_TRUE(viewer.is_finding()) << "the window answers before the search is over";
    EXPECT_TRUE(caption(viewer, "lblfound").startsWith(QStringLiteral("Searching: ")));
    QTest::keyClick(&viewer.view(), Qt::Key_Escape);
    EXPECT_FALSE(viewer.is_finding());
    EXPECT_TRUE(viewer.isVisible());
    EXPECT_EQ(caption(viewer, "lblfound"), QString());
}

TEST_F(TextViewTest, ACopyOfALongTextIsMadeWhenItIsAskedFor) {
    put("results.out", rows(100000)->between({}, rows(100000)->end()).toStdString());
    const auto text = KeptText::of_file(path("results.out"));
    TextView view(text, TextView::Kind::table, Language::english);
    const std::unique_ptr<QMimeData> data(view.new_mime_data());
    EXPECT_EQ(data->formats(), QStringList(QStringLiteral("text/plain")));
    EXPECT_EQ(data->text(), text->between({}, text->end()));
}

} // namespace
} // namespace halvane
