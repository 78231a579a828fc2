// SPDX-License-Identifier: MIT
#include "finemap/limitboxes.h"
#include "hijri/announcedtable.h"
#include "hijri/frmmonths.h"
#include "hijri/monthscaptions.h"
#include "panel/messages.h"
#include "routines/machineclock.h"
#include "routines/seriesloader.h"
#include "tests/panel/panelchecks.h"
#include "tests/support/bytes.h"
#include "timetable/paperview.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTabWidget>
#include <QWheelEvent>
#include <filesystem>

namespace halvane {
namespace {

// The clock of the tests shows 21 June 2024, the place is Amman two hours ahead of Universal Time.

constexpr int patience = 120000;      // [ms]
constexpr int year_with_a_tie = 1446; // of Umm al-Qura

// The Umm al-Qura calendar of 1447 as it is published (R. H. van Gent, The Umm al-Qura calendar of Saudi
// Arabia): the first days of Ramadan and Shawwal.
constexpr const char* ramadan_1447 = "Wednesday, 18 February 2026";
constexpr const char* shawwal_1447 = "Friday, 20 March 2026";

enum Tab { year_tab, month_tab, convert_tab, announced_tab };

class MonthsPanelTest : public PanelTest {
protected:
    MonthsPanelTest() {
        load_series();
        set_file_chooser([this](const QString& /*title*/, const QString& proposed) {
            proposed_name = proposed;
            return chosen_file;
        });
    }
    ~MonthsPanelTest() override { set_file_chooser({}); }

    static void settle(const frmmonths& form) {
        ASSERT_TRUE(QTest::qWaitFor([&form] { return form.is_settled(); }, patience));
    }
    static void choose_rule(frmmonths& form, const char* key, const char* list = "cborule") {
        auto& rules = control<QComboBox>(form, list);
        const int entry = rules.findData(QString::fromLatin1(key));
        ASSERT_GE(entry, 0) << key;
        rules.setCurrentIndex(entry);
    }
    static void show_tab(frmmonths& form, Tab tab) {
        control<QTabWidget>(form, "tabpages").setCurrentIndex(tab);
    }
    /// A year by a rule, settled.
    static void show_year(frmmonths& form, const char* key, int year) {
        choose_rule(form, key);
        enter(form, "txtyear", QString::number(year));
        settle(form);
    }
    static CellTable& table(QWidget& form) { return control<CellTable>(form, "tblyear"); }
    static AnnouncedTable& announced(QWidget& form) { return control<AnnouncedTable>(form, "tblannounced"); }
    /// What a cell shows, without the marks of direction.
    static QString cell(const QTableWidget& cells, int row, int column) {
        const QTableWidgetItem* const item = cells.item(row, column);
        QString text = item == nullptr ? QString() : item->text();
        return text.remove(QChar(0x2068)).remove(QChar(0x2069));
    }
    static int column_of(const QTableWidget& cells, const QString& title) {
        for (int column = 0; column < cells.columnCount(); ++column)
            if (cells.horizontalHeaderItem(column)->text().startsWith(title))
                return column;
        ADD_FAILURE() << "no column " << title.toStdString();
        return 0;
    }
    static QString state(QWidget& form) { return caption(form, "lblstate"); }
    static bool shown(QWidget& form, const char* name) { return !control(form, name).isHidden(); }

    std::string saved_as(frmmonths& form, const std::string& name) {
        chosen_file = QString::fromStdString(path(name));
        click(form, "cmdsave");
        return exists(name) ? bytes_of(path(name)) : std::string();
    }

    QString proposed_name;
    QString chosen_file;
};

TEST_F(MonthsPanelTest, SpeaksBothLanguages) {
    in_both_languages<frmmonths>([](frmmonths& form, Language language) {
        settle(form);
        expect_captions(form, frmmonths_twins(), language);
        expect_captions(form, LimitBoxes::twins(), language);
        EXPECT_EQ(cell(table(form), 8, 0),
                  language == Language::english ? QStringLiteral("Ramadan") : QStringLiteral("رمضان"));
    });
}

TEST_F(MonthsPanelTest, IsUsedByTheKeyboardAloneWhateverIsAskedFor) {
    put("hijri-announced.csv", "year,month,first_day,announced_by\nx,9,2026-02-18,A\n");
    in_both_languages<frmmonths>([](frmmonths& form, Language) {
        for (const char* rule : {"tabular", "seen-here", "mabims"}) {
            choose_rule(form, rule);
            for (const Tab tab : {year_tab, month_tab, convert_tab, announced_tab}) {
                show_tab(form, tab);
                settle(form);
                QCoreApplication::processEvents();
                SCOPED_TRACE(std::string(rule) + " on tab " + std::to_string(tab));
                expect_usable(form);
            }
        }
        choose_rule(form, "seen-anywhere");
        click(form, "chkannounced");
        expect_usable(form);
        form.cmdstop_click();
    });
}

TEST_F(MonthsPanelTest, OpensWithTheFocusInTheYear) {
    frmmonths form;
    form.show();
    QCoreApplication::processEvents();
    EXPECT_EQ(form.focusWidget()->objectName(), QStringLiteral("txtyear"));
    EXPECT_EQ(control<QLineEdit>(form, "txtyear").selectedText(), QStringLiteral("1445"));
}

TEST_F(MonthsPanelTest, OpensWithTheTabularYearOfToday) {
    frmmonths form;
    settle(form);
    // 16 June 2024 was the 10th of Thul Hejjah 1445 in most countries; the table may be a day beside it.
    EXPECT_EQ(text(form, "txtyear"), QStringLiteral("1445"));
    EXPECT_EQ(chosen(form, "cbomonth"), QStringLiteral("Thul Hejjah"));
    EXPECT_EQ(chosen(form, "cborule"), QStringLiteral("Tabular"));
    EXPECT_EQ(caption(form, "lblused").remove(QChar(0x2068)).remove(QChar(0x2069)),
              QStringLiteral("Used: Tabular"));
    EXPECT_FALSE(enabled(form, "cmdtabular"));
    ASSERT_EQ(table(form).rowCount(), 12);
    EXPECT_FALSE(state(form).isEmpty());
}

struct Asked {
    const char* rule;
    bool place, criterion, region;
};

class MonthsPanelRule : public MonthsPanelTest, public ::testing::WithParamInterface<Asked> {};

TEST_P(MonthsPanelRule, ShowsWhatItAsksForAndItsWords) {
    const Asked& asked = GetParam();
    frmmonths form;
    choose_rule(form, asked.rule);
    EXPECT_EQ(shown(form, "fraplace"), asked.place);
    EXPECT_EQ(shown(form, "fracriterion"), asked.criterion);
    EXPECT_EQ(shown(form, "fraregion"), asked.region);
    const HijriRule& rule = *hijri_rule(asked.rule);
    EXPECT_TRUE(caption(form, "lbltold").contains(QString::fromUtf8(rule.told.english)));
    const char* const source = asked.criterion ? catalogued_criterion("yallop")->source : rule.source;
    EXPECT_TRUE(caption(form, "lbltold").contains(QString::fromUtf8(source)));
}

INSTANTIATE_TEST_SUITE_P(
    Of, MonthsPanelRule,
    ::testing::Values(Asked{"tabular", false, false, false}, Asked{"tabular-fatimid", false, false, false},
                      Asked{"umm-al-qura", false, false, false}, Asked{"seen-here", false, true, false},
                      Asked{"seen-at", true, true, false}, Asked{"seen-anywhere", false, true, true},
                      Asked{"mabims", true, false, false}, Asked{"turkey", false, false, false},
                      Asked{"istanbul-2016", false, false, false}));

TEST_F(MonthsPanelTest, TheComparedRuleAsksToo) {
    frmmonths form;
    choose_rule(form, "seen-here", "cbocompare");
    EXPECT_TRUE(shown(form, "fracriterion"));
    choose_rule(form, "seen-anywhere");
    EXPECT_TRUE(shown(form, "fraregion"));
    form.cmdstop_click();
    choose_rule(form, "tabular");
    control<QComboBox>(form, "cbocompare").setCurrentIndex(0);
    EXPECT_FALSE(shown(form, "fracriterion"));
    EXPECT_FALSE(shown(form, "fraregion"));
}

TEST_F(MonthsPanelTest, FajerIsThatOfAPlace) {
    frmmonths form;
    choose_rule(form, "seen-anywhere");
    EXPECT_FALSE(shown(form, "fraplace"));
    choose(form, "cbobefore", "before Fajer at the place");
    EXPECT_TRUE(shown(form, "fraplace"));
    settle(form);
    ASSERT_NE(form.years(), nullptr) << state(form).toStdString();
    EXPECT_EQ(form.years()->rules.front().settings.place.name, "Amman");
}

TEST_F(MonthsPanelTest, SeenAtAPlaceIsOfTheList) {
    frmmonths form;
    choose_rule(form, "seen-at");
    EXPECT_TRUE(checked(form, "optlisted"));
    EXPECT_FALSE(shown(form, "optstored"));
    settle(form);
    EXPECT_EQ(form.years(), nullptr);
    EXPECT_EQ(caption(form, "lblwrong"), "Choose a place of the list.");
    control<QComboBox>(form, "cboplace").setEditText("Sydney");
    settle(form);
    ASSERT_NE(form.years(), nullptr) << state(form).toStdString();
    EXPECT_EQ(form.years()->rules.front().settings.place.name, "Sydney");
    choose_rule(form, "mabims");
    EXPECT_TRUE(shown(form, "optstored"));
}

TEST_F(MonthsPanelTest, ShowsAPublishedYear) {
    frmmonths form;
    show_year(form, "umm-al-qura", 1447);
    ASSERT_EQ(table(form).rowCount(), 12);
    const int first_day = column_of(table(form), "First day");
    EXPECT_EQ(cell(table(form), 8, first_day), ramadan_1447);
    EXPECT_EQ(cell(table(form), 9, first_day), shawwal_1447);
    EXPECT_EQ(cell(table(form), 8, column_of(table(form), "Days")), "30");
    EXPECT_TRUE(state(form).startsWith("1447, Umm al-Qura")) << state(form).toStdString();
}

TEST_F(MonthsPanelTest, ComparesWithAnotherRule) {
    frmmonths form;
    choose_rule(form, "tabular-astronomical", "cbocompare");
    show_year(form, "tabular", 1447);
    EXPECT_EQ(table(form).horizontalHeaderItem(1)->text(), "First day\nTabular");
    EXPECT_EQ(table(form).horizontalHeaderItem(2)->text(), "First day\nTabular, astronomical epoch");
    // The same table from an epoch one day before.
    const int difference = column_of(table(form), "Difference");
    for (int row = 0; row < 12; ++row)
        EXPECT_EQ(cell(table(form), row, difference), "1 day earlier");
    EXPECT_TRUE(state(form).contains("Months on another day: 12")) << state(form).toStdString();
    choose_rule(form, "tabular", "cbocompare");
    settle(form);
    EXPECT_EQ(cell(table(form), 0, difference), "the same day");
    EXPECT_EQ(form.years()->rules.size(), 2U);
    control<QComboBox>(form, "cbocompare").setCurrentIndex(0);
    settle(form);
    EXPECT_EQ(form.years()->rules.size(), 1U);
}

TEST_F(MonthsPanelTest, MarksWhatMayDifferInWords) {
    frmmonths form;
    show_year(form, "umm-al-qura", year_with_a_tie);
    const int notes = column_of(table(form), "Notes");
    int ties = 0;
    for (int row = 0; row < 12; ++row) {
        const bool is_tie = form.years()->rules.front().months[static_cast<std::size_t>(row)].may_differ();
        ties += is_tie ? 1 : 0;
        EXPECT_EQ(cell(table(form), row, notes).contains("may differ by a day"), is_tie);
        EXPECT_EQ(table(form).item(row, 0)->font().bold(), is_tie);
        EXPECT_FALSE(is_tie && cell(table(form), row, column_of(table(form), "Margin")).isEmpty());
    }
    EXPECT_GT(ties, 0);
    EXPECT_TRUE(state(form).contains(QStringLiteral("may differ by a day: %1").arg(ties)));
}

TEST_F(MonthsPanelTest, ARefusedChoiceShowsNothing) {
    frmmonths form;
    settle(form);
    enter(form, "txtyear", "20000");
    settle(form);
    EXPECT_EQ(form.years(), nullptr);
    EXPECT_EQ(table(form).rowCount(), 0);
    EXPECT_TRUE(caption(form, "lblwrong").contains("9600")) << caption(form, "lblwrong").toStdString();
    EXPECT_TRUE(shown(form, "lblwrong"));
    enter(form, "txtyear", "1447");
    choose_rule(form, "mabims");
    click(form, "optlisted");
    control<QComboBox>(form, "cboplace").setEditText("Nowhere");
    settle(form);
    EXPECT_EQ(form.years(), nullptr);
    EXPECT_TRUE(caption(form, "lblwrong").contains("Nowhere"));
    control<QComboBox>(form, "cboplace").setEditText("Sydney");
    settle(form);
    ASSERT_NE(form.years(), nullptr);
    EXPECT_EQ(form.years()->rules.front().settings.place.name, "Sydney");
    EXPECT_FALSE(shown(form, "lblwrong"));
}

TEST_F(MonthsPanelTest, TakesTheCriterionAndTheClassThatCounts) {
    frmmonths form;
    choose_rule(form, "seen-here");
    for (const CataloguedCriterion& criterion : catalogued_criteria()) {
        choose(form, "cbocriterion", QString::fromUtf8(criterion.name.english));
        EXPECT_EQ(entries(form, "cboclass").size() + 1, static_cast<int>(criterion.bands().size()));
        EXPECT_EQ(control<QComboBox>(form, "cboclass").currentIndex() + 1,
                  static_cast<int>(criterion.by_eye));
    }
    choose_rule(form, "yallop-1997", "cbocriterion");
    control<QComboBox>(form, "cboclass").setCurrentIndex(0);
    settle(form);
    ASSERT_NE(form.years(), nullptr) << state(form).toStdString();
    const HijriSettings& settings = form.years()->rules.front().settings;
    EXPECT_STREQ(settings.criterion->key, "yallop-1997");
    EXPECT_EQ(settings.seen_class, 1U);
}

TEST_F(MonthsPanelTest, TakesTheLimitsOfACriterion) {
    frmmonths form;
    choose_rule(form, "seen-here");
    EXPECT_FALSE(shown(form, "txtage"));
    choose_rule(form, "user", "cbocriterion");
    EXPECT_TRUE(shown(form, "txtage"));
    EXPECT_FALSE(shown(form, "txtdanjon"));
    enter(form, "txtage", "20");
    settle(form);
    ASSERT_NE(form.years(), nullptr) << state(form).toStdString();
    EXPECT_EQ(form.years()->rules.front().settings.limits.user.age, 20);
    enter(form, "txtage", "x");
    settle(form);
    EXPECT_EQ(form.years(), nullptr);
    EXPECT_EQ(caption(form, "lblwrong"), "A limit is a number, or nothing.");
    choose_rule(form, "umm-al-qura"); // has no use for it
    settle(form);
    EXPECT_NE(form.years(), nullptr);
}

TEST_F(MonthsPanelTest, TheWheelChoosesNothingInPassing) {
    frmmonths form;
    form.show();
    auto& rules = control<QComboBox>(form, "cborule");
    const QPointF at = QRectF(rules.rect()).center();
    const auto turn = [&rules, at] {
        QWheelEvent event(at, rules.mapToGlobal(at), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&rules, &event);
    };
    form.activateWindow();
    control(form, "txtyear").setFocus();
    turn();
    EXPECT_EQ(rules.currentIndex(), 0);
    rules.setFocus();
    ASSERT_TRUE(QTest::qWaitFor([&rules] { return rules.hasFocus(); }, patience));
    turn();
    EXPECT_EQ(rules.currentIndex(), 1);
}

TEST_F(MonthsPanelTest, ResultsOfOlderSettingsNeverShow) {
    frmmonths form;
    settle(form);
    show_tab(form, month_tab);
    settle(form);
    ASSERT_NE(form.sheet(), nullptr);
    const auto expect_nothing = [&form] {
        EXPECT_EQ(form.years(), nullptr);
        EXPECT_EQ(form.sheet(), nullptr);
        EXPECT_EQ(control<PaperView>(form, "preview").pages(), 0);
        EXPECT_EQ(table(form).rowCount(), 0);
    };
    choose_rule(form, "seen-anywhere");
    expect_nothing();
    ASSERT_TRUE(QTest::qWaitFor([&form] { return enabled(form, "cmdstop"); }, patience));
    expect_nothing();
    choose_rule(form, "tabular");
    settle(form);
    ASSERT_NE(form.years(), nullptr);
    EXPECT_STREQ(form.years()->rules.front().settings.rule->key, "tabular");
    EXPECT_STREQ(form.sheet()->settings.rule->key, "tabular");
}

TEST_F(MonthsPanelTest, StopsALongCalculation) {
    frmmonths form;
    settle(form);
    choose_rule(form, "seen-anywhere");
    ASSERT_TRUE(QTest::qWaitFor([&form] { return enabled(form, "cmdstop"); }, patience));
    EXPECT_TRUE(state(form).contains('%')) << state(form).toStdString();
    click(form, "cmdstop");
    EXPECT_TRUE(form.is_settled());
    EXPECT_FALSE(enabled(form, "cmdstop"));
    EXPECT_EQ(form.years(), nullptr);
    EXPECT_EQ(state(form), "Stopped. Nothing is shown.");
}

// --- The month ---

TEST_F(MonthsPanelTest, ShowsThePageOfAMonthAndGoesOn) {
    frmmonths form;
    show_year(form, "umm-al-qura", 1447);
    emit table(form).cellActivated(8, 0);
    settle(form);
    EXPECT_EQ(control<QTabWidget>(form, "tabpages").currentIndex(), month_tab);
    ASSERT_NE(form.sheet(), nullptr);
    EXPECT_EQ(form.sheet()->month.number, HijriMonthNumber::of(1447, 9));
    EXPECT_EQ(form.sheet()->days.size(), 30U);
    EXPECT_EQ(control<PaperView>(form, "preview").pages(), 1);
    click(form, "cmdnext");
    settle(form);
    EXPECT_EQ(form.sheet()->month.number, HijriMonthNumber::of(1447, 10));
    control<QComboBox>(form, "cbomonth").setCurrentIndex(0);
    click(form, "cmdprevious");
    settle(form);
    EXPECT_EQ(form.sheet()->month.number, HijriMonthNumber::of(1446, 12));
    EXPECT_EQ(text(form, "txtyear"), "1446");
    click(form, "cmdnext");
    settle(form);
    EXPECT_EQ(form.sheet()->month.number, HijriMonthNumber::of(1447, 1));
}

TEST_F(MonthsPanelTest, ThePageHasTheChosenLanguageDigitsAndPaper) {
    frmmonths form;
    show_tab(form, month_tab);
    settle(form);
    PaperView& preview = control<PaperView>(form, "preview");
    auto& digits = control<QComboBox>(form, "cbodigits");
    const int a4 = preview.heightForWidth(1000);
    const QImage english = preview.grab().toImage();
    EXPECT_FALSE(digits.isEnabled()) << "English has no others";
    control<QComboBox>(form, "cbolanguage").setCurrentIndex(1);
    const QImage arabic = preview.grab().toImage();
    EXPECT_NE(arabic, english);
    ASSERT_TRUE(digits.isEnabled());
    digits.setCurrentIndex(1);
    EXPECT_NE(preview.grab().toImage(), arabic);
    choose(form, "cbopaper", "Letter");
    EXPECT_LT(preview.heightForWidth(1000), a4);
}

// --- Converted dates ---

TEST_F(MonthsPanelTest, ConvertsBothWaysByTheChosenRule) {
    frmmonths form;
    show_tab(form, convert_tab);
    choose_rule(form, "umm-al-qura");
    choose(form, "cbocivilday", "18");
    choose(form, "cbocivilmonth", "February");
    enter(form, "txtcivilyear", "2026");
    choose(form, "cbohijriday", "1");
    choose(form, "cbohijrimonth", "Shawwal");
    enter(form, "txthijriyear", "1447");
    settle(form);
    EXPECT_EQ(caption(form, "lbltohijri"), "Wednesday, 1 Ramadan 1447");
    EXPECT_EQ(caption(form, "lbltocivil"), shawwal_1447);
    // Ramadan ends on 19 March; the month after it, from 20 March to 17 April, has 29 days.
    choose(form, "cbohijriday", "30");
    settle(form);
    EXPECT_TRUE(caption(form, "lbltocivil").contains("29 days")) << caption(form, "lbltocivil").toStdString();
}

// --- Announced months ---

constexpr const char* head = "year,month,first_day,announced_by\n";
constexpr const char* with_faults = "year,month,first_day,announced_by\n"
                                    "1447,9,2026-02-19,Council\n"
                                    "1447,ten,2026-03-20,Council\n"
                                    "1447,12,2026-05-18,Council, of Somewhere\n";

TEST_F(MonthsPanelTest, AnnouncedMonthsTakeThePlaceOfTheRule) {
    put("hijri-announced.csv", std::string(head) + "1447,9,2026-02-19,Council\n");
    frmmonths form;
    show_year(form, "umm-al-qura", 1447);
    const int first_day = column_of(table(form), "First day");
    EXPECT_EQ(cell(table(form), 8, first_day), ramadan_1447);
    click(form, "chkannounced");
    settle(form);
    EXPECT_EQ(cell(table(form), 8, first_day), "Thursday, 19 February 2026");
    EXPECT_TRUE(cell(table(form), 8, column_of(table(form), "Notes")).contains("announced by Council"));
}

TEST_F(MonthsPanelTest, ShowsEachFaultInItsRow) {
    put("hijri-announced.csv", with_faults);
    frmmonths form;
    settle(form);
    EXPECT_TRUE(caption(form, "lblfaults").endsWith(": 2")) << caption(form, "lblfaults").toStdString();
    click(form, "cmdeditlist");
    EXPECT_EQ(control<QTabWidget>(form, "tabpages").currentIndex(), announced_tab);
    ASSERT_EQ(announced(form).rowCount(), 3);
    EXPECT_EQ(cell(announced(form), 0, 4), "");
    EXPECT_TRUE(cell(announced(form), 1, 4).contains("ten")) << cell(announced(form), 1, 4).toStdString();
    EXPECT_FALSE(cell(announced(form), 2, 4).isEmpty());
    EXPECT_EQ(cell(announced(form), 2, 3), "Council, of Somewhere");
    EXPECT_FALSE(enabled(form, "cmdsavelist"));
    EXPECT_FALSE(enabled(form, "cmdrevert"));
}

TEST_F(MonthsPanelTest, AListWithAFaultIsRefusedWholeWhenTheUserSaysSo) {
    put("hijri-announced.csv", with_faults);
    frmmonths form;
    show_year(form, "umm-al-qura", 1447);
    EXPECT_FALSE(shown(form, "chkwhole"));
    click(form, "chkannounced");
    settle(form);
    ASSERT_NE(form.years(), nullptr);
    EXPECT_TRUE(shown(form, "chkwhole"));
    click(form, "chkwhole");
    settle(form);
    EXPECT_EQ(form.years(), nullptr);
    EXPECT_TRUE(caption(form, "lblwrong").contains("line 3")) << caption(form, "lblwrong").toStdString();
}

TEST_F(MonthsPanelTest, AnEditMendsAFaultAndTheOthersStay) {
    put("hijri-announced.csv", with_faults);
    frmmonths form;
    show_tab(form, announced_tab);
    AnnouncedTable& list = announced(form);
    list.item(1, 1)->setText(QStringLiteral("١٠"));
    EXPECT_EQ(cell(list, 1, 1), "10");
    EXPECT_EQ(cell(list, 1, 4), "");
    EXPECT_FALSE(cell(list, 2, 4).isEmpty());
    click(form, "cmdsavelist");
    EXPECT_EQ(content("hijri-announced.csv"), "year,month,first_day,announced_by\r\n"
                                              "1447,9,2026-02-19,Council\r\n"
                                              "1447,10,2026-03-20,Council\r\n"
                                              "1447,12,2026-05-18,Council,of Somewhere\r\n");
    EXPECT_FALSE(enabled(form, "cmdsavelist"));
    list.item(2, 3)->setText("Council, of Somewhere else");
    EXPECT_EQ(cell(list, 2, 4), "");
    click(form, "cmdsavelist");
    EXPECT_TRUE(
        content("hijri-announced.csv").ends_with("1447,12,2026-05-18,\"Council, of Somewhere else\"\r\n"));
    EXPECT_FALSE(shown(form, "lblfaults"));
    EXPECT_TRUE(messages.empty());
}

TEST_F(MonthsPanelTest, ALineThatCannotBeReadIsEditedWhole) {
    put("hijri-announced.csv", std::string(head) + "1447,9,2026-02-19,\"Council\n");
    frmmonths form;
    show_tab(form, announced_tab);
    AnnouncedTable& list = announced(form);
    ASSERT_EQ(list.rowCount(), 1);
    EXPECT_EQ(cell(list, 0, 0), "1447,9,2026-02-19,\"Council");
    EXPECT_FALSE(list.item(0, 1)->flags() & Qt::ItemIsEditable);
    list.item(0, 0)->setText("1447,9,2026-02-19,Council");
    EXPECT_EQ(cell(list, 0, 0), "1447");
    EXPECT_EQ(cell(list, 0, 3), "Council");
    EXPECT_EQ(cell(list, 0, 4), "");
}

TEST_F(MonthsPanelTest, AddsAndRemovesMonthsByTheKeyboard) {
    frmmonths form;
    form.show();
    show_tab(form, announced_tab);
    show_year(form, "tabular", 1447);
    control<QComboBox>(form, "cbomonth").setCurrentIndex(8);
    click(form, "cmdadd");
    AnnouncedTable& list = announced(form);
    ASSERT_EQ(list.rowCount(), 1);
    EXPECT_EQ(cell(list, 0, 0), "1447");
    EXPECT_EQ(cell(list, 0, 1), "9");
    EXPECT_FALSE(cell(list, 0, 4).isEmpty());
    auto* const editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(editor, nullptr);
    QTest::keyClicks(editor, "2026-02-18");
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(cell(list, 0, 2), "2026-02-18");
    EXPECT_EQ(cell(list, 0, 4), "");
    EXPECT_TRUE(proposed_name.isEmpty()); // Enter is the edit's
    click(form, "cmdsavelist");
    EXPECT_EQ(read_announced().starts.size(), 1U);
    click(form, "cmdremove");
    EXPECT_EQ(list.rowCount(), 0);
    answer({true});
    click(form, "cmdrevert");
    EXPECT_EQ(list.rowCount(), 1);
}

TEST_F(MonthsPanelTest, AListThatAnotherProgramChangedIsNotLostUnasked) {
    put("hijri-announced.csv", head);
    frmmonths form;
    show_tab(form, announced_tab);
    click(form, "cmdadd");
    const std::string other = std::string(head) + "1446,9,2025-03-01,Council\n";
    put("hijri-announced.csv", other);
    click(form, "cmdsavelist");
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(content("hijri-announced.csv"), other);
    answer({true});
    click(form, "cmdsavelist");
    EXPECT_NE(content("hijri-announced.csv"), other);
}

TEST_F(MonthsPanelTest, MayBeClosedWhileAFailureOfItsListIsTold) {
    auto form = std::make_unique<frmmonths>();
    show_tab(*form, announced_tab);
    click(*form, "cmdadd");
    std::filesystem::create_directory(path("hijri-announced.csv")); // cannot be read as a file
    QStringList titles;
    set_message_presenter([&](QMessageBox& box) {
        titles << box.windowTitle();
        if (titles.size() == 2)
            form.reset();
        return true;
    });
    click(*form, "cmdrevert");
    EXPECT_EQ(titles, (QStringList{"Announced Months", "File Error"}));
    EXPECT_EQ(form, nullptr);
}

TEST_F(MonthsPanelTest, AsksBeforeEditsAreLost) {
    frmmonths form;
    form.show();
    show_tab(form, announced_tab);
    click(form, "cmdadd");
    announced(form).setFocus();
    click(form, "cmdclose");
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_TRUE(messages[0].text.contains("not saved"));
    EXPECT_EQ(messages[0].of_enter, "No");
    EXPECT_TRUE(form.isVisible());
    EXPECT_FALSE(form.close());
    EXPECT_EQ(messages.size(), 2U);
    answer({true});
    QTest::keyClick(&control(form, "cmdclose"), Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
    EXPECT_FALSE(exists("hijri-announced.csv"));
}

TEST_F(MonthsPanelTest, ClosesUnaskedWithoutEdits) {
    frmmonths form;
    form.show();
    settle(form);
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(messages.empty());
    EXPECT_FALSE(exists("hijri-rule.ini"));
}

// --- The kept rule ---

TEST_F(MonthsPanelTest, ARuleIsUsedOutsideThePanelUntilItIsTakenBack) {
    frmmonths form;
    choose_rule(form, "umm-al-qura");
    click(form, "cmduse");
    ASSERT_TRUE(kept_hijri_rule().has_value());
    EXPECT_EQ(kept_hijri_rule()->rule, "umm-al-qura");
    EXPECT_TRUE(caption(form, "lblused").contains("Umm al-Qura"));
    frmmonths another;
    EXPECT_EQ(chosen(another, "cborule"), "Umm al-Qura");
    click(form, "cmdtabular");
    EXPECT_FALSE(kept_hijri_rule().has_value());
    EXPECT_TRUE(caption(form, "lblused").contains("Tabular"));
    EXPECT_FALSE(enabled(form, "cmdtabular"));
}

TEST_F(MonthsPanelTest, EveryChoiceOfAKeptRuleComesBack) {
    HijriChoice kept;
    kept.rule = "seen-anywhere";
    kept.place = "Sydney";
    kept.criterion = "yallop-1997";
    kept.seen_class = 1;
    kept.limits.danjon_limit = 6.4;
    kept.limits.user.lag = 20.5;
    kept.limits.user.altitude.reset();
    kept.region = {-20, -35, 60, 37};
    kept.before = SeenBefore::fajer;
    kept.announced = AnnouncedUse::whole;
    keep_hijri_rule(kept);
    frmmonths form;
    click(form, "cmduse");
    const std::optional<HijriChoice> again = kept_hijri_rule();
    ASSERT_TRUE(again.has_value());
    EXPECT_EQ(text_of(*again), text_of(kept));
}

TEST_F(MonthsPanelTest, ARefusedRuleIsNotUsed) {
    frmmonths form;
    choose_rule(form, "mabims");
    click(form, "optlisted");
    control<QComboBox>(form, "cboplace").setEditText("Nowhere");
    click(form, "cmduse");
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_TRUE(messages[0].text.contains("Nowhere"));
    EXPECT_FALSE(kept_hijri_rule().has_value());
}

TEST_F(MonthsPanelTest, ADamagedRuleIsToldAndTheWayBackStaysOpen) {
    put("hijri-rule.ini", "[rule]\nrule = no-such-rule\n");
    frmmonths form;
    settle(form);
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_TRUE(messages[0].text.contains("hijri-rule.ini"));
    EXPECT_NE(form.years(), nullptr);
    EXPECT_TRUE(caption(form, "lblused").contains("hijri-rule.ini"));
    click(form, "cmdtabular");
    EXPECT_FALSE(exists("hijri-rule.ini"));
    EXPECT_TRUE(caption(form, "lblused").contains("Tabular"));
}

// --- Files ---

TEST_F(MonthsPanelTest, SavesTheYearInEveryFormat) {
    frmmonths form;
    show_year(form, "umm-al-qura", 1447);
    for (const auto& [format, name] : {std::pair{HijriFormat::csv, "year.csv"},
                                       {HijriFormat::json, "year.json"},
                                       {HijriFormat::ics, "year.ics"},
                                       {HijriFormat::text, "year.txt"}})
        EXPECT_EQ(saved_as(form, name),
                  text_of_years(*form.years(), format, Language::english, utc_second_now()))
            << name;
    EXPECT_EQ(proposed_name, QString::fromStdString(file_name_of(*form.years()) + ".csv"));
    EXPECT_TRUE(content("year.csv").find("1447,9,Ramadan,2026-02-18,30,") != std::string::npos)
        << content("year.csv");
    EXPECT_TRUE(state(form).contains("year.txt"));
    EXPECT_FALSE(enabled(form, "cmdprint"));
    EXPECT_TRUE(messages.empty());
}

TEST_F(MonthsPanelTest, SavesTheMonthInEveryFormat) {
    frmmonths form;
    show_year(form, "umm-al-qura", 1447);
    emit table(form).cellActivated(8, 0);
    settle(form);
    EXPECT_TRUE(saved_as(form, "month.pdf").starts_with("%PDF-"));
    EXPECT_EQ(proposed_name, QString::fromStdString(file_name_of(*form.sheet()) + ".pdf"));
    for (const auto& [format, name] : {std::pair{HijriFormat::csv, "month.csv"},
                                       {HijriFormat::json, "month.json"},
                                       {HijriFormat::ics, "month.ics"}})
        EXPECT_EQ(saved_as(form, name),
                  text_of_month(*form.sheet(), format, Language::english, utc_second_now()))
            << name;
    EXPECT_TRUE(enabled(form, "cmdprint"));
}

TEST_F(MonthsPanelTest, TellsAFailedSave) {
    frmmonths form;
    settle(form);
    chosen_file = QString::fromStdString(path("none/year.csv"));
    click(form, "cmdsave");
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_TRUE(messages[0].text.contains("year.csv"));
}

TEST_F(MonthsPanelTest, SavesNothingOfARefusedChoice) {
    frmmonths form;
    enter(form, "txtyear", "0");
    EXPECT_EQ(saved_as(form, "year.csv"), "");
    ASSERT_EQ(messages.size(), 1U);
}

} // namespace
} // namespace halvane
