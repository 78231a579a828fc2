#include "app/messages.h"
#include "app/platform/linuxplatform.h"
#include "app/viewer.h"
#include "app/viewerpages.h"
#include "tests/panel/panelchecks.h"

#include <QApplication>
#include <QClipboard>
#include <QPdfWriter>
#include <QPlainTextEdit>
#include <QTextBlock>

namespace halvane {
namespace {

class ViewerTest : public PanelTest {
protected:
    void SetUp() override {
        put("results.out",
            "By the Name of Allah\r\n\r\n01/06/2024     03:53     05:31\r\n02/06/2024     03:52     05:31\r\n"
            "- عمان, Long: 35:56\r\n");
    }
    void TearDown() override { set_file_chooser({}); }
    QString file() const { return QString::fromStdString(path("results.out")); }
};

TEST_F(ViewerTest, ShowsTheFileFromItsFirstLineWithItsColumns) {
    Viewer viewer(file());
    EXPECT_EQ(viewer.windowTitle(), QStringLiteral("results.out"));
    EXPECT_EQ(viewer.cursor().position(), 0);
    EXPECT_TRUE(control<QPlainTextEdit>(viewer, "txtreport").isReadOnly());
    EXPECT_EQ(viewer.document().findBlockByNumber(2).text(),
              QStringLiteral("01/06/2024     03:53     05:31"));
    EXPECT_EQ(control<QPlainTextEdit>(viewer, "txtreport").lineWrapMode(), QPlainTextEdit::NoWrap);
    const QFontMetricsF metrics(viewer.area().font());
    EXPECT_DOUBLE_EQ(metrics.horizontalAdvance(u'i'), metrics.horizontalAdvance(u'W'))
        << "one width for every character";
}

TEST_F(ViewerTest, AReportStaysLeftToRightInArabicAndWithAnArabicName) {
    set_language(Language::arabic);
    Viewer viewer(file());
    EXPECT_EQ(viewer.layoutDirection(), Qt::RightToLeft);
    EXPECT_EQ(viewer.area().layoutDirection(), Qt::LeftToRight);
    for (QTextBlock line = viewer.document().begin(); line.isValid(); line = line.next())
        EXPECT_EQ(line.textDirection(), Qt::LeftToRight) << line.blockNumber();
}

TEST_F(ViewerTest, EachLineOfAGuideRunsByItsOwnLetters) {
    put("guide.txt", "Times\r\nمواقيت الصلاة\r\n---\r\npref.vsk  الخيارات\r\nloc.vsk\r\n---\r\n");
    Viewer viewer(QString::fromStdString(path("guide.txt")));
    const Qt::LayoutDirection wanted[] = {Qt::LeftToRight, Qt::RightToLeft, Qt::RightToLeft,
                                          Qt::RightToLeft, Qt::LeftToRight, Qt::LeftToRight};
    for (int line = 0; line < 6; ++line)
        EXPECT_EQ(viewer.document().findBlockByNumber(line).textDirection(), wanted[line]) << line;
}

TEST_F(ViewerTest, InArabicAGuideOpensOnItsArabicHeading) {
    put("guide.txt", "Guide\r\n=====\r\nدليل\r\nدليل المستخدم\r\n=====\r\n");
    EXPECT_EQ(Viewer(QString::fromStdString(path("guide.txt"))).cursor().blockNumber(), 0);
    set_language(Language::arabic);
    Viewer viewer(QString::fromStdString(path("guide.txt")));
    EXPECT_EQ(viewer.cursor().blockNumber(), 3);
}

TEST_F(ViewerTest, AMissingFileIsToldInTheWindow) {
    Viewer viewer(QString::fromStdString(path("nothing.txt")));
    EXPECT_TRUE(viewer.document().toPlainText().contains(QStringLiteral("nothing.txt")));
}

TEST_F(ViewerTest, ThePlatformOpensItMaximised) {
    LinuxPlatform().show_text_file("results.out");
    QWidget* viewer = open_window("viewer");
    ASSERT_NE(viewer, nullptr);
    EXPECT_TRUE(viewer->isMaximized());
    EXPECT_EQ(viewer->windowTitle(), QStringLiteral("results.out"));
}

TEST_F(ViewerTest, FindGoesFromPlaceToPlaceAndStartsAgainAtTheTop) {
    Viewer viewer(file());
    enter(viewer, "txtfind", QStringLiteral("05:31"));
    EXPECT_TRUE(viewer.find_next());
    EXPECT_EQ(viewer.cursor().blockNumber(), 2);
    EXPECT_EQ(viewer.cursor().selectedText(), QStringLiteral("05:31"));
    EXPECT_TRUE(viewer.find_next());
    EXPECT_EQ(viewer.cursor().blockNumber(), 3);
    EXPECT_TRUE(viewer.find_next());
    EXPECT_EQ(viewer.cursor().blockNumber(), 2);
    click(viewer, "cmdprevious");
    EXPECT_EQ(viewer.cursor().blockNumber(), 3);
}

TEST_F(ViewerTest, FindTellsWhenThereIsNoSuchText) {
    Viewer viewer(file());
    enter(viewer, "txtfind", QStringLiteral("25:99"));
    QTest::keyClick(&control(viewer, "txtfind"), Qt::Key_Return);
    EXPECT_EQ(caption(viewer, "lblfound"), QStringLiteral("Not found"));
    EXPECT_EQ(viewer.cursor().position(), 0);
}

TEST_F(ViewerTest, ZoomChangesTheSizeOfTypeAndReturns) {
    Viewer viewer(file());
    const double normal = viewer.area().font().pointSizeF();
    click(viewer, "cmdlarger");
    click(viewer, "cmdlarger");
    EXPECT_DOUBLE_EQ(viewer.area().font().pointSizeF(), normal + 2);
    click(viewer, "cmdsmaller");
    EXPECT_DOUBLE_EQ(viewer.area().font().pointSizeF(), normal + 1);
    click(viewer, "cmdnormal");
    EXPECT_DOUBLE_EQ(viewer.area().font().pointSizeF(), normal);
}

TEST_F(ViewerTest, CopyTakesTheSelectionOrElseTheWholeText) {
    Viewer viewer(file());
    click(viewer, "cmdcopy");
    EXPECT_TRUE(QApplication::clipboard()->text().startsWith(QStringLiteral("By the Name of Allah\n")));
    enter(viewer, "txtfind", QStringLiteral("05:31"));
    viewer.find_next();
    click(viewer, "cmdcopy");
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("05:31"));
}

TEST_F(ViewerTest, SaveAsWritesTheSameBytesUnderTheChosenName) {
    Viewer viewer(file());
    QString proposed;
    set_file_chooser([&](const QString&, const QString& name) {
        proposed = name;
        return QString::fromStdString(path("copy.txt"));
    });
    click(viewer, "cmdsave");
    EXPECT_EQ(proposed, QStringLiteral("results.out"));
    EXPECT_EQ(content("copy.txt"), content("results.out"));
    EXPECT_TRUE(messages.empty());
}

TEST_F(ViewerTest, SaveAsToAFolderThatIsNotThereIsTold) {
    Viewer viewer(file());
    set_file_chooser(
        [&](const QString&, const QString&) { return QString::fromStdString(path("no/such/copy.txt")); });
    click(viewer, "cmdsave");
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_TRUE(messages[0].text.contains(QStringLiteral("copy.txt")));
}

TEST_F(ViewerTest, GivingUpTheSaveWritesNothing) {
    Viewer viewer(file());
    set_file_chooser([](const QString&, const QString&) { return QString(); });
    click(viewer, "cmdsave");
    click(viewer, "cmdpdf");
    EXPECT_FALSE(exists("results.pdf"));
    EXPECT_TRUE(messages.empty());
}

TEST_F(ViewerTest, MakesAPdf) {
    Viewer viewer(file());
    set_file_chooser([&](const QString&, const QString& name) {
        return QString::fromStdString(path(name.toStdString()));
    });
    click(viewer, "cmdpdf");
    ASSERT_TRUE(exists("results.pdf"));
    QFile pdf(QString::fromStdString(path("results.pdf")));
    ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
    EXPECT_TRUE(pdf.readAll().startsWith("%PDF-"));
}

TEST_F(ViewerTest, ALongTextFillsAsManyPagesAsItNeeds) {
    QFile target(QString::fromStdString(path("long.pdf")));
    ASSERT_TRUE(target.open(QIODevice::WriteOnly));
    QPdfWriter writer(&target);
    EXPECT_EQ(print_pages(writer, QStringLiteral("short"), QStringLiteral("one line"), false), 1);
    QFile second(QString::fromStdString(path("longer.pdf")));
    ASSERT_TRUE(second.open(QIODevice::WriteOnly));
    QPdfWriter long_writer(&second);
    EXPECT_GE(
        print_pages(long_writer, QStringLiteral("long"), QStringLiteral("a line\n").repeated(400), false), 5);
}

TEST_F(ViewerTest, EscapeClosesIt) {
    Viewer viewer(file());
    viewer.show();
    QTest::keyClick(&viewer.area(), Qt::Key_Escape);
    EXPECT_FALSE(viewer.isVisible());
}

class ViewerBothLanguages : public ViewerTest, public ::testing::WithParamInterface<Language> {};

TEST_P(ViewerBothLanguages, EveryControlIsNamedReachedAndWhole) {
    set_language(GetParam());
    Viewer viewer(file());
    expect_usable(viewer);
    expect_captions(viewer, viewer_twins(), GetParam());
}

INSTANTIATE_TEST_SUITE_P(In, ViewerBothLanguages, ::testing::ValuesIn(both_languages), language_name);

} // namespace
} // namespace halvane
