// SPDX-License-Identifier: MIT
#include "panel/currentplatform.h"
#include "panel/messages.h"
#include "panel/textview.h"
#include "panel/viewer.h"
#include "report/run.h"
#include "stored/textfile.h"
#include "tests/panel/panelchecks.h"

#include <QApplication>
#include <QClipboard>
#include <QPushButton>
#include <QTextEdit>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sys/resource.h>

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
    static std::string golden(const std::string& name) {
        return read_text_file(HALVANE_GOLDEN_FOLDER + ("/" + name));
    }
    QString file() const { return QString::fromStdString(path("results.out")); }
};

TEST_F(ViewerTest, ShowsTheFileFromItsFirstLineWithItsColumns) {
    Viewer viewer(file());
    EXPECT_EQ(viewer.view().cursor(), TextPlace());
    EXPECT_EQ(viewer.view().top_line(), 0);
    EXPECT_EQ(viewer.view().text().line(2), QStringLiteral("01/06/2024     03:53     05:31"));
    const QFontMetricsF metrics(viewer.view().font());
    EXPECT_DOUBLE_EQ(metrics.horizontalAdvance(u'i'), metrics.horizontalAdvance(u'W'))
        << "one width for every character";
}

TEST_F(ViewerTest, AReportStaysLeftToRightInArabicAndWithAnArabicName) {
    set_language(Language::arabic);
    Viewer viewer(file());
    EXPECT_EQ(viewer.layoutDirection(), Qt::RightToLeft);
    EXPECT_EQ(viewer.view().layoutDirection(), Qt::LeftToRight);
    for (int line = 0; line < viewer.view().text().lines(); ++line)
        EXPECT_EQ(viewer.view().direction(line), Qt::LeftToRight) << line;
}

TEST_F(ViewerTest, EachLineOfAGuideRunsByItsOwnLetters) {
    put("guide.txt", "Times\r\nمواقيت الصلاة\r\n---\r\npref.vsk  الخيارات\r\nloc.vsk\r\n---\r\n");
    Viewer viewer(QString::fromStdString(path("guide.txt")));
    const Qt::LayoutDirection wanted[] = {Qt::LeftToRight, Qt::RightToLeft, Qt::RightToLeft,
                                          Qt::RightToLeft, Qt::LeftToRight, Qt::LeftToRight};
    for (int line = 0; line < 6; ++line)
        EXPECT_EQ(viewer.view().direction(line), wanted[line]) << line;
}

TEST_F(ViewerTest, AGuideHasTheLettersOfThePanels) {
    put("guide.txt", "Guide\r\n");
    Viewer viewer(QString::fromStdString(path("guide.txt")));
    EXPECT_EQ(viewer.view().font().family(), viewer.font().family());
    const QFontMetricsF metrics(viewer.view().font());
    EXPECT_LT(metrics.horizontalAdvance(u'i'), metrics.horizontalAdvance(u'W'));
}

TEST_F(ViewerTest, InArabicAGuideOpensOnItsArabicHeading) {
    std::string guide = "Guide\r\n=====\r\nدليل\r\nدليل المستخدم\r\n=====\r\n";
    for (int line = 0; line < 200; ++line)
        guide += "more\r\n";
    put("guide.txt", guide);
    EXPECT_EQ(Viewer(QString::fromStdString(path("guide.txt"))).view().cursor().line, 0);
    set_language(Language::arabic);
    Viewer viewer(QString::fromStdString(path("guide.txt")));
    viewer.show();
    EXPECT_EQ(viewer.view().cursor().line, 3);
    EXPECT_EQ(viewer.view().top_line(), 3);
}

TEST_F(ViewerTest, AMissingFileIsToldInTheWindowAndCannotBeSaved) {
    Viewer viewer(QString::fromStdString(path("nothing.txt")));
    EXPECT_TRUE(viewer.view().text().line(1).contains(QStringLiteral("nothing.txt")));
    for (const char* button : {"cmdsave", "cmdpdf", "cmdprint"})
        EXPECT_FALSE(enabled(viewer, button)) << button;
}

TEST_F(ViewerTest, ThePlatformOpensItMaximised) {
    own_platform().show_text_file("results.out");
    QWidget* viewer = open_window("viewer");
    ASSERT_NE(viewer, nullptr);
    EXPECT_TRUE(viewer->isMaximized());
}

TEST_F(ViewerTest, FindGoesFromPlaceToPlaceAndStartsAgainAtTheTop) {
    Viewer viewer(file());
    enter(viewer, "txtfind", QStringLiteral("05:31"));
    viewer.find_next();
    EXPECT_EQ(viewer.view().cursor().line, 2);
    EXPECT_EQ(viewer.view().selected_text(), QStringLiteral("05:31"));
    viewer.find_next();
    EXPECT_EQ(viewer.view().cursor().line, 3);
    viewer.find_next();
    EXPECT_EQ(viewer.view().cursor().line, 2);
    click(viewer, "cmdprevious");
    EXPECT_EQ(viewer.view().cursor().line, 3);
    EXPECT_EQ(viewer.view().selected_text(), QStringLiteral("05:31"));
}

TEST_F(ViewerTest, FindTellsWhenThereIsNoSuchText) {
    Viewer viewer(file());
    enter(viewer, "txtfind", QStringLiteral("25:99"));
    QTest::keyClick(&control(viewer, "txtfind"), Qt::Key_Return);
    EXPECT_EQ(caption(viewer, "lblfound"), QStringLiteral("Not found"));
    EXPECT_EQ(viewer.view().cursor(), TextPlace());
}

TEST_F(ViewerTest, ZoomChangesTheSizeOfTypeAndReturns) {
    Viewer viewer(file());
    const double normal = viewer.view().font().pointSizeF();
    click(viewer, "cmdlarger");
    click(viewer, "cmdlarger");
    EXPECT_DOUBLE_EQ(viewer.view().font().pointSizeF(), normal + 2);
    click(viewer, "cmdsmaller");
    EXPECT_DOUBLE_EQ(viewer.view().font().pointSizeF(), normal + 1);
    click(viewer, "cmdnormal");
    EXPECT_DOUBLE_EQ(viewer.view().font().pointSizeF(), normal);
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

/// A run of one row.
class OneRow final : public RunOf<int> {
public:
    explicit OneRow(TwinWords answer = {}) : answer_(std::move(answer)) {}
    TwinWords short_answer() const override { return answer_; }
    const char* task() const override { return "one"; }
    const char* report_name() const override { return "results.out"; }
    RunOutcome each_row(const TakeRow& take, Progress& progress) const override {
        return do_row(progress, 100, YieldPlace::after_row, [&] {
            take(7);
            return RunOutcome::done;
        });
    }
    std::span<const ColumnOf<int>> columns() const override {
        static constexpr ColumnOf<int> all[] = {{{"number", {"Number", "العدد"}, "", ValueType::whole},
                                                 [](const int& row) -> Value { return row; }}};
        return all;
    }
    Facts facts() const override { return {}; }

private:
    void write_head(Report& /*report*/) const override {}
    void write_row(Report& /*report*/, const int& /*row*/, int /*number*/) const override {}
    void write_closing(Report& /*report*/, RunOutcome /*outcome*/, int /*rows*/) const override {}

    TwinWords answer_;
};

TEST_F(ViewerTest, AReportOfARunIsSavedInTheFormatOfTheNamesEnding) {
    Viewer viewer(file(), std::make_shared<OneRow>());
    std::string name;
    set_file_chooser([&](const QString&, const QString&) { return QString::fromStdString(path(name)); });
    for (const char* chosen : {"rows.csv", "ROWS.JSON", "rows.txt"}) {
        name = chosen;
        click(viewer, "cmdsave");
    }
    EXPECT_EQ(content("rows.csv"), "number\r\n7\r\n");
    EXPECT_NE(content("ROWS.JSON").find(R"({"number":7})"), std::string::npos);
    EXPECT_EQ(content("rows.txt"), content("results.out"));
    EXPECT_TRUE(messages.empty());
}

TEST_F(ViewerTest, ATextWithoutARunIsSavedAsItIsWhateverItsNamesEnding) {
    Viewer viewer(file());
    set_file_chooser(
        [&](const QString&, const QString&) { return QString::fromStdString(path("copy.csv")); });
    click(viewer, "cmdsave");
    EXPECT_EQ(content("copy.csv"), content("results.out"));
}

TEST_F(ViewerTest, RowsThatCannotBeSavedAreToldAndNothingIsLeft) {
    Viewer viewer(file(), std::make_shared<OneRow>());
    set_file_chooser(
        [&](const QString&, const QString&) { return QString::fromStdString(path("no/such/rows.csv")); });
    click(viewer, "cmdsave");
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_TRUE(messages[0].text.contains(QStringLiteral("rows.csv")));
    EXPECT_EQ(open_window("frmwait"), nullptr);
}

TEST_F(ViewerTest, AnotherKindOfFileGivesTheNameItsEnding) {
    const SaveKind text{QStringLiteral("Text (*.out)"), QStringLiteral("out")};
    const SaveKind csv{QStringLiteral("CSV (*.csv)"), QStringLiteral("csv")};
    const QList<SaveKind> kinds{text, csv};
    EXPECT_EQ(name_of_kind(QStringLiteral("results.out"), csv, kinds), QStringLiteral("results.csv"));
    EXPECT_EQ(name_of_kind(QStringLiteral("May.CSV"), text, kinds), QStringLiteral("May.out"));
    EXPECT_EQ(name_of_kind(QStringLiteral("May 1.5"), csv, kinds), QStringLiteral("May 1.5.csv"))
        << "what is no kind's ending belongs to the name";
    const SaveKind screens{QStringLiteral("Screens (*.display.csv)"), QStringLiteral("display.csv")};
    EXPECT_EQ(name_of_kind(QStringLiteral("May.display.csv"), text, {csv, screens, text}),
              QStringLiteral("May.out"));
    EXPECT_EQ(name_of_kind(QStringLiteral("May.csv"), screens, {csv, screens, text}),
              QStringLiteral("May.display.csv"));
    EXPECT_EQ(name_of_kind(QString(), csv, kinds), QString());
}

/// As on a full disk: while it lives, no file of this process grows beyond `bytes`.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit full{bytes, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &full);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }

private:
    void (*handler_)(int);
    rlimit before_{};
};

class ViewerSaves : public ViewerTest {
protected:
    void SetUp() override {
        ViewerTest::SetUp();
        shown_ = content("results.out");
        set_file_chooser(
            [this](const QString&, const QString&) { return QString::fromStdString(path(chosen_name_)); });
    }
    /// Every file of the folder whose name begins as `name` does.
    std::vector<std::string> files_like(const std::string& name) const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(path("")))
            if (entry.path().filename().string().starts_with(name))
                names.push_back(entry.path().filename().string());
        return names;
    }
    std::string chosen_name_ = "copy.txt";
    std::string shown_;
};

TEST_F(ViewerSaves, GiveTheReportThatIsShownWhenANewerOneHasTakenItsFile) {
    Viewer viewer(file());
    put("results.out", "a newer report\r\n");
    click(viewer, "cmdsave");
    EXPECT_EQ(content("copy.txt"), shown_);
}

TEST_F(ViewerSaves, GiveTheReportThatIsShownWhenItsFileIsChangedInPlace) {
    Viewer viewer(file());
    std::ofstream(path("results.out"), std::ios::trunc) << "changed";
    click(viewer, "cmdsave");
    EXPECT_EQ(content("copy.txt"), shown_);
}

TEST_F(ViewerSaves, GiveTheReportThatIsShownUnderItsOwnNameToo) {
    Viewer viewer(file());
    put("results.out", "a newer report\r\n");
    chosen_name_ = "results.out";
    click(viewer, "cmdsave");
    EXPECT_EQ(content("results.out"), shown_);
}

TEST_F(ViewerSaves, LeaveTheReportWholeWhenTheNameIsAHardLinkToIt) {
    std::filesystem::create_hard_link(path("results.out"), path("copy.txt"));
    Viewer viewer(file());
    click(viewer, "cmdsave");
    EXPECT_EQ(content("copy.txt"), shown_);
    EXPECT_EQ(content("results.out"), shown_);
}

TEST_F(ViewerSaves, KeepTheEarlierCopyOnAFullDiskAndSaySo) {
    put("copy.txt", "the earlier copy");
    Viewer viewer(file());
    {
        const FullDisk full(16);
        click(viewer, "cmdsave");
    }
    EXPECT_EQ(content("copy.txt"), "the earlier copy");
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_TRUE(messages[0].text.contains(QStringLiteral("copy.txt")));
    EXPECT_EQ(files_like("copy.txt").size(), 1U) << "nothing is left beside it";
}

TEST_F(ViewerSaves, KeepTheEarlierPdfOnAFullDiskAndSaySo) {
    put("results.pdf", "the earlier pages");
    chosen_name_ = "results.pdf";
    Viewer viewer(file());
    {
        const FullDisk full(2000);
        click(viewer, "cmdpdf");
    }
    EXPECT_EQ(content("results.pdf"), "the earlier pages");
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_TRUE(messages[0].text.contains(QStringLiteral("results.pdf")));
    EXPECT_EQ(files_like("results.pdf").size(), 1U) << "nothing is left beside it";
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

TEST_F(ViewerTest, EscapeClosesIt) {
    Viewer viewer(file());
    viewer.show();
    QTest::keyClick(&viewer.view(), Qt::Key_Escape);
    EXPECT_FALSE(viewer.isVisible());
}

TEST_F(ViewerTest, TheTitleTellsReportPlaceAndPeriodOfWhatIsShown) {
    put("results.out", golden("prayer/lat62-bright-seconds/results.out"));
    Viewer viewer(file());
    const QString title = QStringLiteral("Prayer Times - Torshavn - 28/07/2026 – 27/08/2026");
    EXPECT_EQ(viewer.windowTitle(), title);
    put("results.out", golden("qibla/shadow-buenos-aires-minutes/results.out"));
    EXPECT_EQ(viewer.windowTitle(), title) << "a newer report has no part in it";
    EXPECT_EQ(Viewer(file()).windowTitle(),
              QStringLiteral("Qiblah Times - Buenos Aires, Centro - 08/02/2024 – 04/03/2024"));
    EXPECT_EQ(viewer.view().text().line(5),
              QStringLiteral("- Prayer times from:  28/07/2026 CE   To:  27/08/2026 CE"));
}

TEST_F(ViewerTest, AnotherTextHasItsFilesNameAndTheGuideItsOwn) {
    EXPECT_EQ(Viewer(file()).windowTitle(), QStringLiteral("results.out")) << "it has no head";
    EXPECT_EQ(Viewer(QString::fromStdString(path("help.txt"))).windowTitle(), QStringLiteral("User's Guide"));
}

class ViewerBothLanguages : public ViewerTest, public ::testing::WithParamInterface<Language> {};

TEST_P(ViewerBothLanguages, TheBarFitsEightHundredPixelsAndItsButtonsHaveOneHeight) {
    set_language(GetParam());
    Viewer viewer(file());
    viewer.resize(800, 500);
    viewer.show();
    EXPECT_LE(viewer.minimumSizeHint().width(), 800);
    EXPECT_EQ(viewer.width(), 800);
    const int height = control(viewer, "cmdclose").height();
    for (const QPushButton* button : viewer.findChildren<QPushButton*>())
        EXPECT_EQ(button->height(), height) << button->objectName().toStdString();
}

TEST_P(ViewerBothLanguages, EveryControlIsNamedReachedAndWhole) {
    set_language(GetParam());
    Viewer viewer(file());
    expect_usable(viewer);
    expect_captions(viewer, viewer_twins(), GetParam());
}

TEST_P(ViewerBothLanguages, TheShortAnswerStandsAboveTheReportInItsLanguage) {
    set_language(GetParam());
    const bool is_english = GetParam() == Language::english;
    Viewer viewer(file(),
                  std::make_shared<OneRow>(TwinWords("First line\nlag -4.5 min", "السطر\nالمكث -4.5 دقيقة")));
    viewer.resize(800, 500);
    viewer.show();
    QCoreApplication::processEvents();
    auto& answer = control<QTextEdit>(viewer, "txtanswer");
    EXPECT_TRUE(answer.isReadOnly());
    EXPECT_EQ(answer.toPlainText(), is_english
                                        ? with_figures_in_order(QStringLiteral("First line\nlag -4.5 min"))
                                        : with_figures_in_order(QStringLiteral("السطر\nالمكث -4.5 دقيقة")));
    const QRect first_letter = answer.cursorRect();
    EXPECT_EQ(first_letter.center().x() < answer.width() / 2, is_english) << "begins on its language's side";
    const auto top_of = [&](QWidget& widget) { return widget.mapTo(&viewer, QPoint()).y(); };
    EXPECT_LT(top_of(answer) + answer.height(), top_of(viewer.view()) + 1);
    EXPECT_TRUE(viewer.view().hasFocus());
    EXPECT_GT(viewer.view().height(), answer.height());
    expect_usable(viewer);
}

TEST_F(ViewerTest, TheShortAnswerIsSelectedCopiedAndLeftByKeys) {
    Viewer viewer(file(), std::make_shared<OneRow>(TwinWords("The answer", "الجواب")));
    viewer.show();
    auto& answer = control<QTextEdit>(viewer, "txtanswer");
    answer.setFocus();
    QTest::keyClick(&answer, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&answer, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("The answer"));
    const double size = answer.font().pointSizeF();
    viewer.zoom_in();
    EXPECT_EQ(answer.font().pointSizeF(), size + 1);
    QTest::keyClick(&answer, Qt::Key_Escape);
    EXPECT_FALSE(viewer.isVisible());
}

TEST_F(ViewerTest, AReportWithoutAShortAnswerStandsAlone) {
    Viewer viewer(file(), std::make_shared<OneRow>());
    EXPECT_EQ(viewer.findChild<QTextEdit*>(QStringLiteral("txtanswer")), nullptr);
}

INSTANTIATE_TEST_SUITE_P(In, ViewerBothLanguages, ::testing::ValuesIn(languages), language_name);

} // namespace
} // namespace halvane
