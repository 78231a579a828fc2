// SPDX-License-Identifier: MIT
#include "base/failure.h"
#include "panel/frmwait.h"
#include "panel/messages.h"
#include "panel/typednumber.h"
#include "routines/seriesloader.h"
#include "stored/loclist.h"
#include "stored/pref.h"
#include "tests/panel/panelchecks.h"
#include "tests/timetable/otherreckoning.h"
#include "timetable/frmtimetable.h"
#include "timetable/pageprinter.h"
#include "timetable/pageview.h"
#include "timetable/profilefile.h"
#include "timetable/timetablecaptions.h"
#include "timetable/timetableoutput.h"
#include "timetable/timetablepdf.h"
#include "timetable/timetableplaces.h"

#include <QAbstractItemModel>
#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPrinter>
#include <QPushButton>
#include <QRegularExpression>
#include <QTabWidget>
#include <algorithm>
#include <filesystem>
#include <memory>
#include <sstream>

namespace halvane {
namespace {

// The clock of the tests shows 21 June 2024, the place is Amman two hours ahead of Universal Time.

class TimetablePanelTest : public PanelTest {
protected:
    TimetablePanelTest() {
        load_series();
        set_file_chooser([this](const QString& title, const QString& proposed) {
            asked_title = title;
            proposed_name = proposed;
            return chosen_file;
        });
    }
    ~TimetablePanelTest() override { set_file_chooser({}); }

    static void settle(const frmtimetable& form) {
        ASSERT_TRUE(QTest::qWaitFor([&form] { return form.is_settled(); }, 60000));
    }
    static PageView& page(QWidget& form) { return control<PageView>(form, "preview"); }
    static std::string title(QWidget& form) {
        PageView& preview = page(form);
        return preview.sheets().at(static_cast<std::size_t>(preview.page())).title.english;
    }
    static QString words(QWidget& form, const char* label) {
        const auto& found = control<QLabel>(form, label);
        return found.isHidden() ? QString() : found.text();
    }
    static void show_rules(QWidget& form) { control<QTabWidget>(form, "tabpages").setCurrentIndex(1); }

    /// Types into a box and waits until the page has answered.
    static void type(frmtimetable& form, const char* name, const QString& text) {
        enter(form, name, text);
        settle(form);
    }
    static void pick(frmtimetable& form, const char* name, const QString& text) {
        choose(form, name, text);
        settle(form);
    }
    static void type_into_list(frmtimetable& form, const char* name, const QString& text) {
        control<QComboBox>(form, name).setEditText(text);
        settle(form);
    }

    /// Saves as the user does under a name of the program folder, and gives the bytes.
    std::string saved_as(frmtimetable& form, const std::string& name) {
        chosen_file = QString::fromStdString(path(name));
        click(form, "cmdsave");
        return exists(name) ? content(name) : std::string();
    }

    static std::string first_line(const std::string& text) { return text.substr(0, text.find("\r\n")); }
    static std::vector<std::string> lines_of(const std::string& text) {
        std::vector<std::string> lines;
        std::istringstream stream(text);
        for (std::string line; std::getline(stream, line);)
            lines.push_back(line);
        return lines;
    }

    QString asked_title;
    QString proposed_name;
    QString chosen_file;
};

TEST_F(TimetablePanelTest, SpeaksBothLanguages) {
    in_both_languages<frmtimetable>([](frmtimetable& form, Language language) {
        expect_captions(form, frmtimetable_twins(), language);
        EXPECT_EQ(caption(form, "cmdsave"),
                  language == Language::english ? QStringLiteral("&Save...") : QStringLiteral("&حفظ..."));
        EXPECT_EQ(chosen(form, "cbokind"),
                  language == Language::english ? QStringLiteral("A month") : QStringLiteral("شهر ميلادي"));
        settle(form);
    });
}

TEST_F(TimetablePanelTest, EachPageIsUsedByTheKeyboardAlone) {
    in_both_languages<frmtimetable>([](frmtimetable& form, Language) {
        settle(form);
        expect_usable(form);
        show_rules(form);
        click(form, "cmdnew");
        settle(form);
        expect_usable(form);
        control<QTabWidget>(form, "tabpages").setCurrentIndex(0);
        pick(form, "cbokind", entries(form, "cbokind").last());
        expect_usable(form);
    });
}

TEST_F(TimetablePanelTest, OpensWithTheCurrentMonthOfTheStoredPlace) {
    frmtimetable form;
    settle(form);
    EXPECT_EQ(chosen(form, "cbomonth"), QStringLiteral("June"));
    EXPECT_EQ(text(form, "txtyear"), QStringLiteral("2024"));
    EXPECT_TRUE(checked(form, "optstored"));
    EXPECT_TRUE(checked(form, "optzonestored"));
    EXPECT_EQ(chosen(form, "cboprofile"), QStringLiteral("Preferences"));
    EXPECT_EQ(page(form).pages(), 1);
    EXPECT_EQ(title(form), "Prayer times, June 2024");
    EXPECT_EQ(page(form).sheets()[0].rows.size(), 30U);
    EXPECT_EQ(page(form).sheets()[0].place.english, "Amman");
}

TEST_F(TimetablePanelTest, AYearHasTwelvePagesToTurn) {
    frmtimetable form;
    pick(form, "cbokind", QStringLiteral("A year"));
    EXPECT_EQ(page(form).pages(), 12);
    EXPECT_FALSE(enabled(form, "cmdprevious"));
    EXPECT_EQ(title(form), "Prayer times, January 2024");
    EXPECT_EQ(words(form, "lblpage"), QStringLiteral("Page 1 of 12"));
    click(form, "cmdnext");
    EXPECT_EQ(title(form), "Prayer times, February 2024");
    EXPECT_TRUE(enabled(form, "cmdprevious"));
    for (int press = 0; press < 10; ++press)
        click(form, "cmdnext");
    EXPECT_EQ(title(form), "Prayer times, December 2024");
    EXPECT_FALSE(enabled(form, "cmdnext"));
}

TEST_F(TimetablePanelTest, AMonthLeadsToTheNextOne) {
    frmtimetable form;
    pick(form, "cbomonth", QStringLiteral("December"));
    click(form, "cmdnext");
    settle(form);
    EXPECT_EQ(title(form), "Prayer times, January 2025");
    EXPECT_EQ(text(form, "txtyear"), QStringLiteral("2025"));
    click(form, "cmdprevious");
    settle(form);
    EXPECT_EQ(title(form), "Prayer times, December 2024");
}

// 1 June 2024 lies in the eleventh month of 1445 by the tabular calendar, which has 30 days.
TEST_F(TimetablePanelTest, TheHijriMonthIsThatOfTheFirstDay) {
    frmtimetable form;
    pick(form, "cbokind", QStringLiteral("A Hijri month"));
    EXPECT_EQ(control<QComboBox>(form, "cbomonth").currentIndex(), 10);
    EXPECT_EQ(text(form, "txtyear"), QStringLiteral("1445"));
    EXPECT_EQ(page(form).pages(), 1);
    EXPECT_EQ(page(form).sheets()[0].rows.size(), 30U);
}

// By the other reckoning the eleventh month of 1445 has 29 days.
TEST_F(TimetablePanelTest, FollowsTheReckoningThatItIsGiven) {
    HijriReckoningPointer given = other_reckoning();
    frmtimetable form(nullptr, [&given] { return given; });
    pick(form, "cbokind", QStringLiteral("A Hijri month"));
    EXPECT_EQ(control<QComboBox>(form, "cbomonth").currentIndex(), 10);
    EXPECT_EQ(page(form).sheets().at(0).rows.size(), 29U);
    const std::vector<TwinWords>& notes = page(form).sheets()[0].notes;
    EXPECT_TRUE(std::any_of(notes.begin(), notes.end(),
                            [](const TwinWords& note) { return note.english == "Hijri dates: Other"; }));
    given = nullptr;
    pick(form, "cbomonth", entries(form, "cbomonth").at(8));
    pick(form, "cbomonth", entries(form, "cbomonth").at(10));
    EXPECT_EQ(page(form).sheets().at(0).rows.size(), 30U);
}

TEST_F(TimetablePanelTest, TellsThatThereIsNoReckoning) {
    bool fails = true;
    frmtimetable form(nullptr, [&fails]() -> HijriReckoningPointer {
        if (fails)
            throw RunTimeFailure(TwinWords{"The rule is damaged.", "القاعدة تالفة."});
        return nullptr;
    });
    settle(form);
    EXPECT_EQ(words(form, "lblspanwrong"), QStringLiteral("The rule is damaged."));
    EXPECT_EQ(page(form).pages(), 0);
    fails = false;
    pick(form, "cbomonth", QStringLiteral("May"));
    EXPECT_EQ(words(form, "lblspanwrong"), QString());
    EXPECT_EQ(page(form).pages(), 1);
}

TEST_F(TimetablePanelTest, TellsThatAReckoningFails) {
    auto failing = std::make_shared<HijriReckoning>(
        HijriReckoning{{"Failing", "فاشلة"}, [](double, double) -> HijriCalendar {
                           throw RunTimeFailure(TwinWords{"There is no month.", "لا يوجد شهر."});
                       }});
    frmtimetable form(nullptr, [&failing] { return failing; });
    settle(form);
    EXPECT_EQ(page(form).pages(), 0);
    EXPECT_TRUE(control<QLabel>(form, "lblstate").text().contains(QStringLiteral("There is no month.")));
    pick(form, "cbokind", QStringLiteral("A Hijri month"));
    EXPECT_EQ(words(form, "lblspanwrong"), QStringLiteral("There is no month."));
}

TEST_F(TimetablePanelTest, ADateToADateHasAPageForEachMonth) {
    frmtimetable form;
    pick(form, "cbokind", QStringLiteral("From a date to a date"));
    EXPECT_EQ(chosen(form, "cbotoday"), QStringLiteral("30"));
    pick(form, "cbotomonth", QStringLiteral("August"));
    EXPECT_EQ(page(form).pages(), 3);
    pick(form, "cbotomonth", QStringLiteral("May"));
    EXPECT_EQ(words(form, "lblspanwrong"), QStringLiteral("The last date comes before the first."));
    pick(form, "cbotomonth", QStringLiteral("February"));
    EXPECT_EQ(words(form, "lblspanwrong"), QStringLiteral("The calendar has no such date."));
}

TEST_F(TimetablePanelTest, AYearIsTypedInArabicDigits) {
    frmtimetable form;
    type(form, "txtyear", QStringLiteral("٢٠٢٦"));
    EXPECT_EQ(title(form), "Prayer times, June 2026");
}

TEST_F(TimetablePanelTest, AWrongYearIsToldBelowItsBoxUntilItIsMended) {
    frmtimetable form;
    type(form, "txtyear", QStringLiteral("20000"));
    EXPECT_TRUE(words(form, "lblspanwrong").contains(QStringLiteral("20000")));
    EXPECT_EQ(page(form).pages(), 0);
    EXPECT_EQ(words(form, "lblstate"), QStringLiteral("Nothing is shown. ") + words(form, "lblspanwrong"));
    EXPECT_EQ(saved_as(form, "timetable.csv"), "");
    EXPECT_TRUE(asked_title.isEmpty());
    type(form, "txtyear", QStringLiteral("2025"));
    EXPECT_EQ(words(form, "lblspanwrong"), QString());
    EXPECT_EQ(words(form, "lblstate"), QString());
    EXPECT_EQ(page(form).pages(), 1);
}

TEST_F(TimetablePanelTest, APlaceOfTheListGoesByTheRulesOfItsZone) {
    frmtimetable form;
    click(form, "optlisted");
    settle(form);
    EXPECT_EQ(words(form, "lblplacewrong"), QStringLiteral("Choose a place of the list."));
    type_into_list(form, "cboplace", QStringLiteral("Nowhere"));
    EXPECT_EQ(words(form, "lblplacewrong"), QStringLiteral("There is no place \"Nowhere\" in the list."));
    type_into_list(form, "cboplace", QStringLiteral("Sydney"));
    EXPECT_EQ(words(form, "lblplacewrong"), QString());
    EXPECT_EQ(page(form).sheets()[0].place.english, "Sydney");
}

TEST_F(TimetablePanelTest, TheZoneOfADeliveredPlaceIsProposed) {
    add_location([] {
        Location cairo;
        cairo.name = "Cairo";
        cairo.longitude_degrees = 31;
        cairo.longitude_minutes = 15;
        cairo.latitude_degrees = 30;
        cairo.latitude_minutes = 3;
        cairo.east = cairo.north = true;
        cairo.west = cairo.south = false;
        cairo.zone = 2;
        return cairo;
    }());
    frmtimetable form;
    click(form, "optlisted");
    type_into_list(form, "cboplace", QStringLiteral("Cairo"));
    EXPECT_TRUE(checked(form, "optzonerules"));
    EXPECT_EQ(chosen(form, "cbozone"), QStringLiteral("Africa/Cairo"));
    // Egypt: summer time again since 2023, from the last Friday of April on.
    EXPECT_NE(page(form).sheets()[0].zone.english.find("+3"), std::string::npos)
        << page(form).sheets()[0].zone.english;
    click(form, "optzonestored");
    settle(form);
    EXPECT_FALSE(words(form, "lblzonediff").isEmpty());
    click(form, "optzonerules");
    type_into_list(form, "cbozone", QStringLiteral("Africa/Nowhere"));
    EXPECT_EQ(words(form, "lblzonewrong"), QStringLiteral("There is no time zone \"Africa/Nowhere\"."));
}

TEST_F(TimetablePanelTest, TheListOfPlacesFiltersWhatIsTypedAnywhereInANameAndAnyCase) {
    frmtimetable form;
    form.show();
    click(form, "optlisted");
    auto& list = control<QComboBox>(form, "cboplace");
    list.lineEdit()->clear();
    QTest::keyClicks(list.lineEdit(), QStringLiteral("DNEY"));
    QStringList found;
    for (int row = 0; row < list.completer()->completionModel()->rowCount(); ++row)
        found << list.completer()->completionModel()->index(row, 0).data().toString();
    EXPECT_EQ(found, QStringList{QStringLiteral("Sydney")});
    settle(form);
}

struct SavedKind {
    const char* name;
    const char* begins;
    const char* holds;
};

void PrintTo(const SavedKind& kind, std::ostream* out) {
    *out << kind.name;
}

class SavedTimetable : public TimetablePanelTest, public ::testing::WithParamInterface<SavedKind> {};

TEST_P(SavedTimetable, IsOfItsKind) {
    frmtimetable form;
    settle(form);
    const std::string bytes = saved_as(form, GetParam().name);
    EXPECT_EQ(bytes.rfind(GetParam().begins, 0), 0U) << bytes.substr(0, 40);
    EXPECT_NE(bytes.find(GetParam().holds), std::string::npos);
    EXPECT_EQ(proposed_name, QStringLiteral("timetable-Amman.pdf"));
    EXPECT_TRUE(words(form, "lblstate").startsWith(QStringLiteral("Saved: ")));
    EXPECT_TRUE(messages.empty());
}

INSTANTIATE_TEST_SUITE_P(Kinds, SavedTimetable,
                         ::testing::Values(SavedKind{"t.csv", "date,weekday,hijri,fajer", "\r\n2024-06-30,"},
                                           SavedKind{"t.display.csv", "", "2024-"},
                                           SavedKind{"t.ics", "BEGIN:VCALENDAR", "END:VCALENDAR"},
                                           SavedKind{"t.json", "{", "2024-06-30"},
                                           SavedKind{"t.html", "<!", "</html>"}),
                         [](const ::testing::TestParamInfo<SavedKind>& row) {
                             std::string name = std::string(row.param.name).substr(2);
                             std::replace(name.begin(), name.end(), '.', '_');
                             return name;
                         });

TEST_F(TimetablePanelTest, APdfIsSavedWhereTheNameHasNoOtherEnding) {
    frmtimetable form;
    settle(form);
    chosen_file = QString::fromStdString(path("t.pdf"));
    click(form, "cmdsave");
    EXPECT_GT(std::filesystem::file_size(path("t.pdf")), 1000U);
    chosen_file = QString::fromStdString(path("t.page"));
    click(form, "cmdsave");
    EXPECT_GT(std::filesystem::file_size(path("t.page")), 1000U);
}

TEST_F(TimetablePanelTest, AFileIsThatOfTheEngine) {
    frmtimetable form;
    settle(form);
    NoProgress progress;
    const TimetableSettings settings{stored_place(), neutral_profile(read_pref()), month_span(2024, 6).span};
    const auto timetable = make_timetable(loaded_theory(), settings, progress);
    EXPECT_EQ(saved_as(form, "t.csv"), csv_of(*timetable, settings.profile.page));
}

TEST_F(TimetablePanelTest, AFileThatCannotBeWrittenIsTold) {
    frmtimetable form;
    settle(form);
    EXPECT_EQ(saved_as(form, "no such folder/t.csv"), "");
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_TRUE(messages[0].text.contains(QStringLiteral("no such folder")));
}

TEST_F(TimetablePanelTest, CancelSavesNothing) {
    frmtimetable form;
    form.show();
    settle(form);
    pick(form, "cbokind", QStringLiteral("A year"));
    choose(form, "cbokind", QStringLiteral("A year"));
    enter(form, "txtyear", QStringLiteral("2025"));
    during_run(1, [] { cancel_runs(); });
    EXPECT_EQ(saved_as(form, "t.csv"), "");
    EXPECT_FALSE(asked_title.isEmpty());
    EXPECT_TRUE(messages.empty());
}

TEST_F(TimetablePanelTest, CancelAnswersWhileALongPdfIsMade) {
    frmtimetable form;
    form.show();
    pick(form, "cbokind", QStringLiteral("From a date to a date"));
    type(form, "txttoyear", QStringLiteral("2034"));
    EXPECT_EQ(page(form).pages(), 121);
    during_run(1, [] { cancel_runs(); });
    chosen_file = QString::fromStdString(path("t.pdf"));
    click(form, "cmdsave");
    EXPECT_FALSE(exists("t.pdf"));
    click(form, "cmdsave");
    EXPECT_TRUE(exists("t.pdf"));
    EXPECT_TRUE(messages.empty());
}

TEST_F(TimetablePanelTest, ClosingWhileAYearIsCalculatedIsSafe) {
    for (int time = 0; time < 3; ++time) {
        frmtimetable form;
        choose(form, "cbokind", QStringLiteral("A year"));
        QTest::qWait(250);
    }
    SUCCEED();
}

// Columns

QListWidgetItem* entry(QListWidget& list, const QString& name) {
    return list.findItems(name, Qt::MatchExactly).value(0);
}

TEST_F(TimetablePanelTest, ColumnsAreCheckedAndMovedByTheKeyboard) {
    frmtimetable form;
    form.show();
    settle(form);
    auto& list = control<QListWidget>(form, "lstcolumns");
    list.setFocus();
    list.setCurrentItem(entry(list, QStringLiteral("Day")));
    QTest::keyClick(&list, Qt::Key_Space);
    list.setCurrentItem(entry(list, QStringLiteral("Hijri")));
    QTest::keyClick(&control<QPushButton>(form, "cmdup"), Qt::Key_Space);
    QTest::keyClick(&control<QPushButton>(form, "cmdup"), Qt::Key_Space);
    list.setCurrentItem(entry(list, QStringLiteral("Midnight")));
    QTest::keyClick(&list, Qt::Key_Space);
    settle(form);
    EXPECT_EQ(first_line(saved_as(form, "t.csv")),
              "hijri,date,fajer,shuroq,dhohur,aser,maghreb,isha,midnight");
}

TEST_F(TimetablePanelTest, AtLeastOneColumnIsWanted) {
    frmtimetable form;
    settle(form);
    auto& list = control<QListWidget>(form, "lstcolumns");
    for (int row = 0; row < list.count(); ++row)
        list.item(row)->setCheckState(Qt::Unchecked);
    settle(form);
    EXPECT_EQ(words(form, "lblcolumnswrong"), QStringLiteral("Choose at least one column."));
}

TEST_F(TimetablePanelTest, TheCommonNamesAreThoseOfTheListAndThePage) {
    frmtimetable form;
    settle(form);
    pick(form, "cbonames", QStringLiteral("Fajr, Sunrise, Asr ..."));
    EXPECT_NE(entry(control<QListWidget>(form, "lstcolumns"), QStringLiteral("Sunrise")), nullptr);
    EXPECT_EQ(page(form).sheets()[0].columns[4].heading.english, "Sunrise");
}

// Rules

TEST_F(TimetablePanelTest, TheRulesOfThePreferencesAreShownAndNotEdited) {
    frmtimetable form;
    show_rules(form);
    EXPECT_EQ(text(form, "txtfajer"), QStringLiteral("18"));
    for (const char* box : {"txtfajer", "cborule", "txtaddisha", "iqafajer", "cboauthority"})
        EXPECT_FALSE(enabled(form, box)) << box;
    EXPECT_FALSE(enabled(form, "cmddelete"));
    EXPECT_FALSE(words(form, "lblneutral").isEmpty());
    settle(form);
}

TEST_F(TimetablePanelTest, ThePreferencesBecomeAProfileUnderAName) {
    frmtimetable form;
    show_rules(form);
    enter(form, "txtname", QStringLiteral("Our mosque"));
    click(form, "cmdsaveprofile");
    settle(form);
    const Profile stored = read_profile("Our mosque");
    EXPECT_FALSE(stored.preferences.has_value());
    EXPECT_EQ(stored.fajer_angle, 18);
    EXPECT_EQ(chosen(form, "cboprofile"), QStringLiteral("Our mosque"));
    EXPECT_TRUE(enabled(form, "txtfajer"));
    EXPECT_TRUE(enabled(form, "cmddelete"));
}

// Umm al-Qura: 18.5 degrees, 90 minutes after Maghreb, 120 in Ramadan (praytimes.org, "Calculation Methods").
TEST_F(TimetablePanelTest, AnAuthorityFillsTheBoxesAndIsTold) {
    frmtimetable form;
    show_rules(form);
    click(form, "cmdnew");
    pick(form, "cboauthority", QStringLiteral("Umm al-Qura University, Makkah"));
    EXPECT_EQ(text(form, "txtfajer"), QStringLiteral("18.5"));
    EXPECT_EQ(text(form, "txtishamin"), QStringLiteral("90"));
    EXPECT_EQ(text(form, "txtisharam"), QStringLiteral("120"));
    EXPECT_TRUE(words(form, "lblsource").contains(QStringLiteral("PrayTimes")));
    EXPECT_NE(page(form).sheets()[0].rules.english.find("Umm al-Qura"), std::string::npos);
}

TEST_F(TimetablePanelTest, AProfileIsStoredAndReadBackWhole) {
    frmtimetable form;
    show_rules(form);
    click(form, "cmdnew");
    enter(form, "txtname", QStringLiteral("North"));
    enter(form, "txtfajer", QStringLiteral("١٥"));
    enter(form, "txtaddmaghreb", QStringLiteral("2"));
    enter(form, "iqafajer", QStringLiteral("05:30"));
    enter(form, "iqamaghreb", QStringLiteral("+5"));
    enter(form, "iqaisha", QStringLiteral("+20 up"));
    enter(form, "iqajumuah", QStringLiteral("12:30 13:15"));
    enter(form, "iqaalarm", QStringLiteral("10"));
    choose(form, "cborule", QStringLiteral("A seventh of the night"));
    choose(form, "cbouse", QStringLiteral("Always"));
    choose(form, "cboroundisha", QStringLiteral("Up"));
    choose(form, "cboshadow", QStringLiteral("Hanafi"));
    choose(form, "cbohours", QStringLiteral("12 hours"));
    click(form, "chkheight");
    click(form, "cmdsaveprofile");
    settle(form);
    EXPECT_TRUE(messages.empty());
    const Profile stored = read_profile("North");
    EXPECT_EQ(stored.fajer_angle, 15);
    EXPECT_EQ(stored.added[DayTime::maghreb], 2);
    EXPECT_EQ(stored.iqamah[DayTime::fajer], (Iqamah{Iqamah::Kind::fixed, 330, false}));
    EXPECT_EQ(stored.iqamah[DayTime::maghreb], (Iqamah{Iqamah::Kind::after, 5, false}));
    EXPECT_EQ(stored.iqamah[DayTime::isha], (Iqamah{Iqamah::Kind::after, 20, true}));
    EXPECT_EQ(stored.jumuah, (std::vector<int>{750, 795}));
    EXPECT_EQ(stored.page.alarm_minutes, 10);
    EXPECT_EQ(stored.high_latitude, HighLatitudeRule::seventh);
    EXPECT_EQ(stored.rule_use, RuleUse::always);
    EXPECT_EQ(stored.rounding[DayTime::isha], Rounding::up);
    EXPECT_TRUE(stored.hanafi);
    EXPECT_TRUE(stored.height_counts);
    EXPECT_EQ(stored.page.clock, ClockFace::hours_12);

    frmtimetable again;
    choose(again, "cboprofile", QStringLiteral("North"));
    settle(again);
    EXPECT_EQ(text(again, "txtfajer"), QStringLiteral("15"));
    EXPECT_EQ(text(again, "iqaisha"), QStringLiteral("+20 up"));
    EXPECT_EQ(chosen(again, "cbohours"), QStringLiteral("12 hours"));
    EXPECT_FALSE(words(again, "lblrules").contains(QStringLiteral("not stored")));
}

TEST_F(TimetablePanelTest, WrongRulesAreToldBelowTheirBoxesAndAreNotStored) {
    frmtimetable form;
    show_rules(form);
    click(form, "cmdnew");
    enter(form, "txtname", QStringLiteral("Wrong"));
    type(form, "txtfajer", QStringLiteral("99"));
    EXPECT_TRUE(words(form, "lblangleswrong").startsWith(QStringLiteral("Fajer angle")));
    EXPECT_TRUE(words(form, "lblangleswrong").contains(QStringLiteral("1 ... 30")));
    EXPECT_EQ(page(form).pages(), 0);
    click(form, "cmdsaveprofile");
    EXPECT_EQ(profile_names(), std::vector<std::string>{});
    type(form, "txtfajer", QStringLiteral("18"));
    EXPECT_EQ(words(form, "lblangleswrong"), QString());
    type(form, "iqaisha", QStringLiteral("later"));
    EXPECT_TRUE(words(form, "lbliqamahwrong").contains(QStringLiteral("+20")));
    type(form, "iqaisha", QStringLiteral(""));
    EXPECT_EQ(words(form, "lbliqamahwrong"), QString());
    type(form, "txtmaghreb", QStringLiteral("20"));
    EXPECT_FALSE(words(form, "lblangleswrong").isEmpty());
    control<QTabWidget>(form, "tabpages").setCurrentIndex(0);
    EXPECT_EQ(saved_as(form, "t.csv"), "");
    EXPECT_EQ(control<QTabWidget>(form, "tabpages").currentIndex(), 1);
}

TEST_F(TimetablePanelTest, ARefusedNameIsTold) {
    frmtimetable form;
    show_rules(form);
    click(form, "cmdnew");
    for (const char* name : {"", "a/b", "../x"}) {
        enter(form, "txtname", QString::fromLatin1(name));
        click(form, "cmdsaveprofile");
        EXPECT_FALSE(words(form, "lblnamewrong").isEmpty()) << name;
    }
    EXPECT_EQ(profile_names(), std::vector<std::string>{});
    settle(form);
}

TEST_F(TimetablePanelTest, AnotherProfileIsReplacedOnlyWhenTheUserSaysSo) {
    Profile other;
    other.name = "There";
    other.fajer_angle = 12;
    write_profile(other);
    frmtimetable form;
    show_rules(form);
    click(form, "cmdnew");
    enter(form, "txtname", QStringLiteral("There"));
    answer({false, true});
    click(form, "cmdsaveprofile");
    EXPECT_EQ(read_profile("There").fajer_angle, 12);
    click(form, "cmdsaveprofile");
    EXPECT_EQ(read_profile("There").fajer_angle, 18);
    ASSERT_EQ(messages.size(), 2U);
    EXPECT_TRUE(messages[0].text.contains(QStringLiteral("There")));
    EXPECT_EQ(messages[0].of_enter, QStringLiteral("No"));
    settle(form);
}

TEST_F(TimetablePanelTest, DeleteAsksFirst) {
    Profile other;
    other.name = "There";
    write_profile(other);
    frmtimetable form;
    choose(form, "cboprofile", QStringLiteral("There"));
    show_rules(form);
    answer({false, true});
    click(form, "cmddelete");
    EXPECT_EQ(messages.back().of_enter, QStringLiteral("No"));
    EXPECT_EQ(profile_names().size(), 1U);
    click(form, "cmddelete");
    EXPECT_EQ(profile_names().size(), 0U);
    EXPECT_EQ(chosen(form, "cboprofile"), QStringLiteral("Preferences"));
    settle(form);
}

TEST_F(TimetablePanelTest, ADamagedProfileIsToldAndTheRulesStay) {
    put("profile-Damaged.ini", "[rules]\nfajer_angle = much\n");
    frmtimetable form;
    choose(form, "cboprofile", QStringLiteral("Damaged"));
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_TRUE(messages[0].text.contains(QStringLiteral("profile-Damaged.ini")));
    EXPECT_EQ(chosen(form, "cboprofile"), QStringLiteral("Preferences"));
    settle(form);
}

TEST_F(TimetablePanelTest, NothingIsStoredButBySave) {
    const std::string before = content("pref.vsk");
    {
        frmtimetable form;
        form.show();
        show_rules(form);
        click(form, "cmdnew");
        type(form, "txtfajer", QStringLiteral("15"));
        EXPECT_TRUE(words(form, "lblrules").contains(QStringLiteral("not stored")));
        QTest::keyClick(&form, Qt::Key_Escape);
        EXPECT_FALSE(form.isVisible());
    }
    EXPECT_EQ(content("pref.vsk"), before);
    EXPECT_EQ(profile_names(), std::vector<std::string>{});
}

// Comparison

TEST_F(TimetablePanelTest, ComparesWithATableOfTheUser) {
    frmtimetable form;
    settle(form);
    const std::string ours = saved_as(form, "ours.csv");
    chosen_file = QString::fromStdString(path("ours.csv"));
    click(form, "cmdcompare");
    QWidget* const window = open_window("frmcomparison");
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(asked_title, QStringLiteral("Compare with a Table"));
    const QString text = control<QPlainTextEdit>(*window, "txtcomparison").toPlainText();
    EXPECT_TRUE(text.contains(QStringLiteral("30"))) << text.toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("Fajer")));
    chosen_file = QString::fromStdString(path("pref.vsk"));
    click(form, "cmdcompare");
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_TRUE(messages[0].text.contains(QStringLiteral("pref.vsk")));
}

TEST_F(TimetablePanelTest, ComparesColumnsThatThePageDoesNotShow) {
    frmtimetable form;
    settle(form);
    saved_as(form, "screen.display.csv");
    chosen_file = QString::fromStdString(path("screen.display.csv"));
    click(form, "cmdcompare");
    QWidget* const window = open_window("frmcomparison");
    ASSERT_NE(window, nullptr);
    const QString text = control<QPlainTextEdit>(*window, "txtcomparison").toPlainText();
    const QRegularExpression hanafi(QStringLiteral("Aser \\(Hanafi\\) +30 "));
    EXPECT_TRUE(text.contains(hanafi)) << text.toStdString();
}

// Paper

TEST_F(TimetablePanelTest, ThePageIsPaintedAtTheScreensScale) {
    frmtimetable form;
    form.show();
    settle(form);
    PageView& preview = page(form);
    EXPECT_GE(preview.height(), preview.heightForWidth(preview.width()));
    QImage image(preview.size() * 2, QImage::Format_RGB32);
    image.setDevicePixelRatio(2);
    preview.render(&image);
    int inked = 0;
    for (int row = 0; row < image.height(); ++row)
        for (int column = 0; column < image.width(); ++column)
            inked += qGray(image.pixel(column, row)) < 128 ? 1 : 0;
    EXPECT_GT(inked, image.width() * image.height() / 200);
    EXPECT_LT(inked, image.width() * image.height() / 4);
}

TEST_F(TimetablePanelTest, APrinterTakesThePagesOfItsRange) {
    frmtimetable form;
    pick(form, "cbokind", QStringLiteral("A year"));
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(path("printed.pdf")));
    set_paper(printer, PaperSize::letter);
    printer.setFromTo(2, 4);
    const std::vector<TimetableSheet>& sheets = page(form).sheets();
    const PageSettings settings;
    ASSERT_TRUE(print_pages(printer, painted_pages(sheets, settings)));
    QFile file(printer.outputFileName());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().count("/Type /Page\n"), 3);
    printer.setFromTo(13, 14);
    EXPECT_FALSE(print_pages(printer, painted_pages(sheets, settings)));
}

TEST_F(TimetablePanelTest, LetterPaperIsShorter) {
    frmtimetable form;
    settle(form);
    EXPECT_NEAR(page(form).heightForWidth(1000), 1414, 1); // A4: 297 / 210
    pick(form, "cbopaper", QStringLiteral("Letter"));
    EXPECT_NEAR(page(form).heightForWidth(1000), 1294, 1); // 11 / 8.5
}

} // namespace
} // namespace halvane
