// SPDX-License-Identifier: MIT
#include "tables/frmcoor.h"

#include "ephemeris/series.h"
#include "panel/frmwait.h"
#include "panel/panelsupport.h"
#include "routines/seriesloader.h"
#include "stored/textfile.h"
#include "tests/panel/panelchecks.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QRadioButton>
#include <QTimer>

namespace halvane {
namespace {

class CoorTest : public PanelTest {
protected:
    CoorTest() { load_series(); }

    static void enter_start(QWidget& form, const char* year, const char* month, const char* day,
                            const char* hour) {
        enter(form, "txty", QString::fromLatin1(year));
        choose(form, "cbom", QString::fromLatin1(month));
        choose(form, "cbod", QString::fromLatin1(day));
        choose(form, "cboh", QString::fromLatin1(hour));
        choose(form, "cbomn", QStringLiteral("0"));
        choose(form, "cbos", QStringLiteral("0"));
    }
    static void enter_end(QWidget& form, const char* year, const char* month, const char* day,
                          const char* hour, const char* minute) {
        enter(form, "txt2y", QString::fromLatin1(year));
        choose(form, "cbo2m", QString::fromLatin1(month));
        choose(form, "cbo2d", QString::fromLatin1(day));
        choose(form, "cbo2h", QString::fromLatin1(hour));
        choose(form, "cbo2mn", QString::fromLatin1(minute));
        choose(form, "cbo2s", QStringLiteral("0"));
    }
    /// Three days of seconds: some seconds of run.
    static void enter_long_table(QWidget& form) {
        enter_start(form, "2024", "1", "1", "0");
        enter_end(form, "2024", "1", "4", "0", "0");
        enter(form, "txti", QStringLiteral("1"));
        choose(form, "cboi", QStringLiteral("Second"));
    }
};

TEST_F(CoorTest, TheListsHoldTheObjectsAndTheUnits) {
    frmcoor form;
    EXPECT_EQ(entries(form, "cboobj"), (QStringList{"Sun", "Moon"}));
    EXPECT_EQ(entries(form, "cboi"), (QStringList{"Second", "Minute", "Hour", "Day"}));
    EXPECT_EQ(entries(form, "cbom").size(), 12);
    EXPECT_EQ(entries(form, "cbod").size(), 31);
    EXPECT_EQ(entries(form, "cboh").first(), QStringLiteral("0"));
    EXPECT_EQ(entries(form, "cboh").last(), QStringLiteral("23"));
    for (const char* list : {"cbomn", "cbos", "cbo2mn", "cbo2s"})
        EXPECT_EQ(entries(form, list).last(), QStringLiteral("59")) << list;
}

TEST_F(CoorTest, TheListsAreArabicInArabic) {
    set_language(Language::arabic);
    frmcoor form;
    EXPECT_EQ(entries(form, "cboobj"), (QStringList{QStringLiteral("الشمس"), QStringLiteral("القمر")}));
    EXPECT_EQ(entries(form, "cboi"), (QStringList{QStringLiteral("ثانية"), QStringLiteral("دقيقة"),
                                                  QStringLiteral("ساعة"), QStringLiteral("يوم")}));
}

TEST_F(CoorTest, EveryCaptionIsThatOfTheLanguage) {
    in_both_languages<frmcoor>(
        [](QWidget& form, Language language) { expect_captions(form, frmcoor_twins(), language); });
}

TEST_F(CoorTest, EveryControlHasANameAKeyAndRoom) {
    in_both_languages<frmcoor>([](QWidget& form, Language) { expect_usable(form); });
}

TEST_F(CoorTest, TheLoadFillsEveryControlFromTheStoredRecord) {
    put("coor.vsk", "1,#FALSE#,#FALSE#,-44,3,15,13,44,7,2026,12,31,23,59,58,6,1,1\r\n");
    frmcoor form;
    EXPECT_EQ(control<QComboBox>(form, "cboobj").currentIndex(), 1);
    EXPECT_TRUE(checked<QRadioButton>(form, "opttdt"));
    EXPECT_TRUE(checked<QRadioButton>(form, "opttopo"));
    EXPECT_EQ(text(form, "txty"), QStringLiteral("-44"));
    const std::pair<const char*, const char*> lists[] = {
        {"cbom", "3"},   {"cbod", "15"},  {"cboh", "13"},  {"cbomn", "44"},  {"cbos", "7"},
        {"cbo2m", "12"}, {"cbo2d", "31"}, {"cbo2h", "23"}, {"cbo2mn", "59"}, {"cbo2s", "58"}};
    for (const auto& [name, entry] : lists)
        EXPECT_EQ(chosen(form, name), QString::fromLatin1(entry)) << name;
    EXPECT_EQ(text(form, "txt2y"), QStringLiteral("2026"));
    EXPECT_EQ(text(form, "txti"), QStringLiteral("6"));
    EXPECT_EQ(control<QComboBox>(form, "cboi").currentIndex(), 1);
    EXPECT_TRUE(checked<QCheckBox>(form, "chksummer"));
}

TEST_F(CoorTest, CloseStoresTheChoicesAndComputesNothing) {
    frmcoor form;
    form.show();
    choose(form, "cboobj", QStringLiteral("Moon"));
    click(form, "opttdt");
    click(form, "opttopo");
    enter_start(form, "2025", "2", "28", "6");
    enter_end(form, "2025", "3", "1", "18", "45");
    enter(form, "txti", QStringLiteral("12"));
    choose(form, "cboi", QStringLiteral("Minute"));
    click(form, "chksummer");
    click(form, "cmdclose");
    EXPECT_EQ(content("coor.vsk"), "1,#FALSE#,#FALSE#,2025,2,28,6,0,0,2025,3,1,18,45,0,12,1,1\r\n");
    EXPECT_FALSE(form.isVisible());
    EXPECT_FALSE(exists("ephemeris.out"));
}

TEST_F(CoorTest, AStoredNumberThatNoListHoldsIsKept) {
    put("coor.vsk", "1,#TRUE#,#TRUE#,2026,1,1,24,7.5,0,2026,1,2,0,0,60,6,1,0\r\n");
    frmcoor form;
    EXPECT_EQ(chosen(form, "cbomn"), QStringLiteral("7.5"));
    click(form, "cmdclose");
    EXPECT_EQ(content("coor.vsk"), "1,#TRUE#,#TRUE#,2026,1,1,24,7.5,0,2026,1,2,0,0,60,6,1,0\r\n");
}

TEST_F(CoorTest, TheIntervalIsStoredAsTheMagnitudeOfItsWholePart) {
    const std::pair<const char*, const char*> cases[] = {{"2.7", ",2,3,0\r\n"},
                                                         {"-3", ",3,3,0\r\n"},
                                                         {"-0.9", ",0,3,0\r\n"},
                                                         {"", ",0,3,0\r\n"},
                                                         {"x", ",0,3,0\r\n"}};
    for (const auto& [typed, end] : cases) {
        frmcoor form;
        form.show();
        enter(form, "txti", QString::fromLatin1(typed));
        click(form, "cmdclose");
        EXPECT_TRUE(content("coor.vsk").ends_with(end)) << typed << ": " << content("coor.vsk");
    }
}

TEST_F(CoorTest, AYearThatIsNoNumberIsAskedAboutBeforeTheTableStarts) {
    const std::string before = content("coor.vsk");
    frmcoor form;
    form.show();
    enter(form, "txty", QStringLiteral("year"));
    answer({false});
    click(form, "cmdcalc");
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_TRUE(messages[0].text.startsWith(QStringLiteral("From, year: ")));
    EXPECT_EQ(content("coor.vsk"), before);
    EXPECT_FALSE(exists("ephemeris.out"));
    EXPECT_EQ(form.focusWidget(), &control(form, "txty"));
}

TEST_F(CoorTest, EscapeLeavesTheStoredRecord) {
    expect_escape_stores_nothing<frmcoor>("coor.vsk",
                                          [](QWidget& form) { enter(form, "txti", QStringLiteral("55")); });
}

TEST_F(CoorTest, CalculateWritesTheTableShowsItAndHidesThePanel) {
    put("loc.vsk", place_of_the_golden_reports);
    frmcoor form;
    form.show();
    choose(form, "cboobj", QStringLiteral("Sun"));
    click(form, "optut");
    click(form, "optgeo");
    enter_start(form, "2024", "6", "21", "0");
    enter_end(form, "2024", "6", "21", "23", "30");
    enter(form, "txti", QStringLiteral("2.7"));
    choose(form, "cboi", QStringLiteral("Hour"));
    click(form, "cmdcalc");
    EXPECT_EQ(content("ephemeris.out"),
              read_text_file(HALVANE_TESTS "/golden/tables/sun-geocentric-ut1-hours/ephemeris.out"));
    EXPECT_EQ(content("coor.vsk"), "0,#TRUE#,#TRUE#,2024,6,21,0,0,0,2024,6,21,23,30,0,2,2,0\r\n");
    EXPECT_EQ(platform_double.shown_files, std::vector<std::string>{"ephemeris.out"});
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(open_window("frmwait"), nullptr);
}

TEST_F(CoorTest, TheReportStaysEnglishInArabic) {
    set_language(Language::arabic);
    frmcoor form;
    form.show();
    choose(form, "cboobj", QStringLiteral("القمر"));
    click(form, "cmdcalc");
    const std::string report = content("ephemeris.out");
    EXPECT_NE(report.find("- Moon Ephemeris\r\n"), std::string::npos);
    EXPECT_NE(report.find("* DT: Delta T in seconds.\r\n"), std::string::npos);
}

TEST_F(CoorTest, AnEndBeforeTheStartIsToldAndNothingIsWritten) {
    frmcoor form;
    form.show();
    enter_start(form, "2024", "1", "2", "0");
    enter_end(form, "2024", "1", "1", "23", "59");
    click(form, "cmdcalc");
    ASSERT_EQ(messages.size(), 1U);
    expect_warning(messages[0], QStringLiteral("Date Error"),
                   QStringLiteral("The end date must be AFTER the beginning date!"));
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(control(form, "cmdcalc").isEnabled());
    EXPECT_FALSE(exists("ephemeris.out"));
    EXPECT_TRUE(platform_double.shown_files.empty());
    EXPECT_EQ(open_window("frmwait"), nullptr);
    EXPECT_NE(content("coor.vsk").find(",2024,1,2,0,0,0,2024,1,1,23,59,0,"), std::string::npos);
}

TEST_F(CoorTest, AYearBeyondTheTheoriesIsToldInItsBoxAndNothingIsStored) {
    const std::string stored = content("coor.vsk");
    frmcoor form;
    form.show();
    for (const char* box : {"txt2y", "txty"}) {
        enter(form, box, QStringLiteral("99999"));
        messages.clear();
        click(form, "cmdcalc");
        ASSERT_EQ(messages.size(), 1U) << box;
        expect_warning(messages[0], QStringLiteral("Year Error"),
                       QStringLiteral("There is no answer for the year 99999: please enter a year from "
                                      "-4000 to 9999."));
        EXPECT_EQ(form.focusWidget(), &control(form, box));
        EXPECT_EQ(control<QLineEdit>(form, box).selectedText(), QStringLiteral("99999"));
    }
    EXPECT_EQ(content("coor.vsk"), stored);
    EXPECT_FALSE(exists("ephemeris.out"));
}

TEST_F(CoorTest, AnEndlessTableIsToldInItsBoxAndNothingIsStored) {
    const std::string stored = content("coor.vsk");
    set_language(Language::arabic);
    frmcoor form;
    form.show();
    enter_start(form, "1000", "1", "1", "0");
    enter_end(form, "9000", "1", "1", "0", "0");
    enter(form, "txti", QStringLiteral("1"));
    choose(form, "cboi", QStringLiteral("ثانية"));
    click(form, "cmdcalc");
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].title, QStringLiteral("خطأ"));
    EXPECT_TRUE(messages[0].text.contains(QStringLiteral("10000000")));
    EXPECT_EQ(form.focusWidget(), &control(form, "txti"));
    EXPECT_EQ(content("coor.vsk"), stored);
    EXPECT_FALSE(exists("ephemeris.out"));
}

TEST_F(CoorTest, ALongIntervalIsStoredAsItStands) {
    frmcoor form;
    form.show();
    enter(form, "txti", QStringLiteral("99999999999999999999"));
    click(form, "cmdclose");
    EXPECT_TRUE(content("coor.vsk").ends_with(",100000000000000000000,3,0\r\n")) << content("coor.vsk");
}

TEST_F(CoorTest, TheDateMessageIsArabicInArabic) {
    set_language(Language::arabic);
    frmcoor form;
    form.show();
    enter(form, "txt2y", QStringLiteral("1999"));
    click(form, "cmdcalc");
    ASSERT_EQ(messages.size(), 1U);
    expect_warning(messages[0], QStringLiteral("خطأ"),
                   QStringLiteral("تاريخ النهاية يجب أن يكون بعد التاريخ البداية"));
    EXPECT_EQ(messages[0].direction, Qt::RightToLeft);
}

TEST_F(CoorTest, AStartEqualToTheEndIsNotRefused) {
    frmcoor form;
    form.show();
    enter_start(form, "2024", "1", "1", "0");
    enter_end(form, "2024", "1", "1", "0", "0");
    click(form, "cmdcalc");
    EXPECT_TRUE(messages.empty());
    EXPECT_NE(content("ephemeris.out").find("\r\n00:00:00 01/01/2024"), std::string::npos);
}

TEST_F(CoorTest, CancelLeavesAPartialTableAndNoViewer) {
    frmcoor form;
    form.show();
    enter_long_table(form);
    bool was_enabled = true;
    QTimer::singleShot(300, &form, [&] {
        was_enabled = control(form, "cmdcalc").isEnabled();
        QWidget* wait = open_window("frmwait");
        ASSERT_NE(wait, nullptr);
        click(*wait, "bcancel");
    });
    click(form, "cmdcalc");
    EXPECT_FALSE(was_enabled) << "a second table must not start within the first";
    const std::string report = content("ephemeris.out");
    EXPECT_NE(report.find("\r\n00:00:00 01/01/2024"), std::string::npos);
    EXPECT_EQ(report.find("03/01/2024"), std::string::npos);
    EXPECT_TRUE(report.ends_with("* DT: Delta T in seconds.\r\n"));
    EXPECT_TRUE(platform_double.shown_files.empty());
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(control(form, "cmdcalc").isEnabled());
    EXPECT_EQ(open_window("frmwait"), nullptr);
}

TEST_F(CoorTest, ThePanelMayBeClosedInMidRun) {
    const Panel panel{"frmcoor", "cmdcoor", false, make_panel<frmcoor>};
    open_panel(panel, nullptr);
    const QPointer<QWidget> form(open_window("frmcoor"));
    ASSERT_NE(form, nullptr);
    enter_long_table(*form);
    QTimer::singleShot(200, form, [form] { form->close(); });
    QTimer::singleShot(400, [] { cancel_runs(); });
    click(*form, "cmdcalc");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(form, nullptr);
    EXPECT_TRUE(exists("ephemeris.out"));
    EXPECT_TRUE(platform_double.shown_files.empty());
}

} // namespace
} // namespace halvane
