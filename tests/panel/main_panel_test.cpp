// SPDX-License-Identifier: MIT
#include "base/failure.h"
#include "calendar/locationclock.h"
#include "desktop/frmmain.h"
#include "desktop/mainload.h"
#include "hijri/keptrule.h"
#include "panel/frmwait.h"
#include "panel/namelabel.h"
#include "routines/machineclock.h"
#include "stored/loc.h"
#include "stored/pref.h"
#include "tests/panel/panelchecks.h"
#include "tests/support/places.h"

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QHelpEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <cstring>
#include <filesystem>

namespace halvane {
namespace {

// The panel's texts, written out once more.
constexpr ControlText captions[] = {
    {"frmmain", "Halvane 5.3.9", "Halvane 5.3.9"},
    {"cmddat", "&Date", "ال&تاريخ"},
    {"cmdloc", "&Location", "المو&قع"},
    {"cmdpre", "&Preferences", "ا&لخيارات"},
    {"cmdqib", "&Qiblah", "&اتجاه القبلة"},
    {"cmdcom", "Prayer &Times", "مواقيت ال&صلاة"},
    {"cmdale", "Prayer &Alerts", "م&نبه الصلاة"},
    {"cmdpha", "M&oon Phases", "أ&طوار القمر"},
    {"cmdcresv", "Crescent &Visibility", "&رؤية الهلال"},
    {"cmdtele", "Tele&scope", "تلس&كوب"},
    {"cmdmonths", "Hi&jri Months", "الأشهر اله&جرية"},
    {"cmdext", "E&xit", "&خروج"},
    {"cmdhel", "&Help", "م&ساعدة"},
    {"cmdcon", "Hejric &Gregorian ", "&هجري ميلا&دي"},
    {"cmdtable", "T&imetable", "التقويم ال&شهري"},
    {"cmdmoon", "&Moon Times", "&مواقيت القمر"},
    {"cmdcoor", "Sun Moon &Ephemeris", "أ&زياج الشمس و القمر"},
    {"fratoday", "Prayer Times", "مواقيت الصلاة"},
    {"framain", "Desktop", "اللوحة الرئيسة"},
    {"lbltheader", "Today's Prayer Times", "مواقيت الصلاة اليوم"},
    {"lblhfaj", "Fajer", "الفجر"},
    {"lblhshr", "Shuroq", "الشروق"},
    {"lblhdoh", "Dhohur", "الظهر"},
    {"lblhasr", "Aser", "العصر"},
    {"lblhmag", "Maghreb", "المغرب"},
    {"lblhish", "Isha", "العشاء"},
    {"lblhead", "Tarsine Sky Circle", "Tarsine Sky Circle"},
    {"lbltitle", "Halvane 5.3", "Halvane 5.3"},
    {"lblby", "By Orlan Vesk", "تنفيذ Orlan Vesk"},
};

class MainPanelTest : public PanelTest {
protected:
    void set_latitude(double degrees) {
        Location location = read_loc();
        location.latitude_degrees = degrees;
        location.latitude_minutes = 0;
        write_loc(location);
    }

    void set_clock(int day, int hour, int minute) { set_machine_time({2024, 6, day, hour, minute, 0}); }

    static QString text(QWidget& form, const char* name) { return control<QLabel>(form, name).text(); }
    static QStringList times(QWidget& form) {
        QStringList texts;
        for (const char* name : {"lbltfaj", "lbltshr", "lbltdoh", "lbltasr", "lbltmag", "lbltish"})
            texts << text(form, name);
        return texts;
    }
    static bool shown(QWidget& form, const char* name) { return control(form, name).isVisibleTo(&form); }

    /// "Fajer: in 2 h 3 min"; empty when no prayer is marked.
    static QString remaining(QWidget& form) {
        QStringList marks;
        for (const char* column : {"faj", "shr", "doh", "asr", "mag", "ish"}) {
            const QString mark = text(form, (std::string("lbln") + column).c_str());
            if (!mark.isEmpty())
                marks << text(form, (std::string("lblh") + column).c_str()) + QStringLiteral(": ") + mark;
        }
        return marks.join(u' ');
    }
    /// The mark of an Aser in the hour of the place's clock that shows 16:07.
    static QString after_seven_past_four(QWidget& form) {
        const QString aser = text(form, "lbltasr");
        EXPECT_TRUE(aser.startsWith(QStringLiteral("16:"))) << aser.toStdString();
        return QStringLiteral("Aser: in %1 min").arg(QStringView(aser).mid(3, 2).toInt() - 7);
    }
    static void set_zone(double hours) {
        Location location = read_loc();
        location.zone = hours;
        write_loc(location);
    }
};

QDialog* make_sample(QWidget* owner) {
    auto* form = new QDialog(owner);
    form->setObjectName(QStringLiteral("frmsample"));
    return form;
}

class MainPanelCaption : public MainPanelTest, public ::testing::WithParamInterface<ControlText> {};

TEST_P(MainPanelCaption, IsThatOfTheLanguage) {
    in_both_languages<frmmain>([](frmmain& form, Language language) {
        form.load();
        expect_caption(form, GetParam(), language);
    });
}

INSTANTIATE_TEST_SUITE_P(Every, MainPanelCaption, ::testing::ValuesIn(captions), caption_name);

TEST_F(MainPanelTest, BeforeTheLoadTheLabelsHoldTheirDesign) {
    frmmain form;
    EXPECT_EQ(times(form), QStringList(6, QStringLiteral("00:00:00")));
    EXPECT_EQ(text(form, "lbltloc"), QStringLiteral("Location"));
    EXPECT_EQ(text(form, "lblmdate"), QStringLiteral("Machine's Date: "));
    EXPECT_EQ(text(form, "lblmtime"), QStringLiteral("Machine's Time: "));
}

TEST_F(MainPanelTest, AStoredYearBeyondTheTheoriesIsToldBeforeTheRun) {
    set_period({200000, 1, 1}, {200000, 1, 2});
    frmmain form;
    form.load();
    for (const char* button : {"cmdcom", "cmdmoon"}) {
        messages.clear();
        click(form, button);
        ASSERT_EQ(messages.size(), 1U) << button;
        EXPECT_EQ(messages[0].title, QStringLiteral("Year Error"));
        EXPECT_TRUE(messages[0].text.startsWith(QStringLiteral("There is no answer for the year 200000: ")));
        EXPECT_TRUE(messages[0].text.endsWith(QStringLiteral("It stands in the Date menu.")));
    }
    EXPECT_FALSE(exists("results.out"));
    EXPECT_FALSE(exists("mresults.out"));
}

TEST_F(MainPanelTest, TheFootTellsOfASeriesFileThatIsNotTheDeliveredOne) {
    frmmain form;
    form.load();
    EXPECT_TRUE(control(form, "lblseries").isHidden());
    const std::string delivered = content("term.vsk");
    std::string series = delivered;
    const std::size_t digit = series.find_first_of("12345678", series.find(',') + 1);
    ++series[digit];
    std::filesystem::remove(path("term.vsk")); // it may be a link to the delivered one
    put("term.vsk", series);
    form.load();
    EXPECT_FALSE(control(form, "lblseries").isHidden());
    EXPECT_EQ(text(form, "lblseries"), QStringLiteral("Warning: the series file %1 is not the delivered one.")
                                           .arg(QString::fromStdString(path("term.vsk"))));
    set_language(Language::arabic);
    form.load();
    EXPECT_TRUE(text(form, "lblseries").contains(QStringLiteral("ليس الملف المسلم مع البرنامج")));
    set_language(Language::english);
    std::filesystem::remove(path("term.vsk"));
    put("term.vsk", delivered);
    form.load();
    EXPECT_TRUE(control(form, "lblseries").isHidden());
}

TEST_F(MainPanelTest, TheFilesAreReadInTheOrderOfTheLoadStep) {
    const std::vector<std::string> order{"termfull.vsk", "loc.vsk",  "term.vsk", "mterm.vsk",
                                         "pref.vsk",     "date.vsk", "elp.vsk"};
    for (const std::string& name : order)
        std::filesystem::rename(path(name), path(name) + ".away");
    frmmain form;
    for (const std::string& name : order) {
        try {
            form.load();
            ADD_FAILURE() << name << " was not missed";
        } catch (const RunTimeFailure& failure) {
            EXPECT_NE(std::string(failure.what()).find("/" + name), std::string::npos) << failure.what();
        }
        std::filesystem::rename(path(name) + ".away", path(name));
    }
    EXPECT_NO_THROW(form.load());
}

class MainPanelMissingFile : public MainPanelTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(MainPanelMissingFile, EndsTheLoadInEnglish) {
    remove(GetParam());
    frmmain form;
    EXPECT_THROW(form.load(), RunTimeFailure);
}

INSTANTIATE_TEST_SUITE_P(Every, MainPanelMissingFile,
                         ::testing::Values("termfull.vsk", "loc.vsk", "term.vsk", "mterm.vsk", "pref.vsk",
                                           "date.vsk", "elp.vsk"),
                         [](const auto& row) { return std::string(row.param, strcspn(row.param, ".")); });

class MainPanelEarlyFile : public MainPanelTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(MainPanelEarlyFile, EndsTheLoadInArabicToo) {
    set_language(Language::arabic);
    remove(GetParam());
    frmmain form;
    EXPECT_THROW(form.load(), RunTimeFailure);
}

INSTANTIATE_TEST_SUITE_P(Every, MainPanelEarlyFile,
                         ::testing::Values("termfull.vsk", "loc.vsk", "term.vsk", "mterm.vsk", "pref.vsk"),
                         [](const auto& row) { return std::string(row.param, strcspn(row.param, ".")); });

TEST_F(MainPanelTest, InArabicAMissingElpIsPassedOver) {
    set_language(Language::arabic);
    remove("elp.vsk");
    frmmain form;
    EXPECT_NO_THROW(form.load());
    EXPECT_EQ(text(form, "lbltmag"), QStringLiteral("18:45"));
}

TEST_F(MainPanelTest, InArabicAMissingDateFileLeavesTheRestOfTheLoadAlone) {
    set_language(Language::arabic);
    remove("date.vsk");
    frmmain form;
    EXPECT_NO_THROW(form.load());
    EXPECT_EQ(times(form), QStringList(6, QString()));
    EXPECT_EQ(text(form, "lbltloc"), QStringLiteral("Amman"));
    EXPECT_EQ(text(form, "lblmtime"), QStringLiteral("وقت الجهاز: 15:07"));
}

TEST_F(MainPanelTest, ADamagedRecordIsToldWithItsFile) {
    put("loc.vsk", "\"Amman\",35,56\r\n");
    frmmain form;
    try {
        form.load();
        ADD_FAILURE() << "the damaged record was taken";
    } catch (const RunTimeFailure& failure) {
        EXPECT_NE(std::string(failure.what()).find("loc.vsk"), std::string::npos) << failure.what();
    }
}

TEST_F(MainPanelTest, DateLineInEnglish) {
    frmmain form;
    form.load();
    EXPECT_EQ(text(form, "lblmdate"),
              QStringLiteral("Machine's Date: Friday, 21 June 2024 ( 14 Thul Hejjah 1445 )"));
    EXPECT_EQ(text(form, "lblmtime"), QStringLiteral("Machine's Time: 15:07"));
}

TEST_F(MainPanelTest, DateLineInArabic) {
    set_language(Language::arabic);
    frmmain form;
    form.load();
    EXPECT_EQ(text(form, "lblmdate"),
              QStringLiteral("تاريخ الجهاز:  الجمعة، 21 حزيران 2024 ( 14 ذو الحجة 1445 )"));
    EXPECT_EQ(text(form, "lblmtime"), QStringLiteral("وقت الجهاز: 15:07"));
}

TEST_F(MainPanelTest, EveryArabicMonthOfTheDateLine) {
    const char* months[] = {"كانون ثاني", "شباط", "آذار",  "نيسان",     "أيار",       "حزيران",
                            "تموز",       "آب",   "أيلول", "تشرين أول", "تشرين ثاني", "كانون أول"};
    // Julian day of 0 h of 15 January 2024 and so on: 2460324.5 and the lengths of the months of a leap year.
    const int lengths[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    double jd = 2460324.5;
    for (int month = 1; month <= 12; ++month) {
        const std::string line = date_line({2024, month, 15, 0, 0, 0}, jd, Language::arabic);
        EXPECT_NE(line.find(std::string(" 15 ") + months[month - 1] + " 2024 ( "), std::string::npos) << line;
        jd += lengths[month - 1];
    }
}

TEST_F(MainPanelTest, TheTimerRefreshesTheClockLineEveryFiveSeconds) {
    frmmain form;
    form.load();
    auto* timer = form.findChild<QTimer*>("timertime");
    ASSERT_NE(timer, nullptr);
    EXPECT_EQ(timer->interval(), 5000);
    EXPECT_TRUE(timer->isActive());
    set_clock(21, 15, 8);
    form.timertime_event();
    EXPECT_EQ(text(form, "lblmtime"), QStringLiteral("Machine's Time: 15:08"));
}

TEST_F(MainPanelTest, OverMidnightTheDateAndTheTimesStayTillTheNextLoad) {
    frmmain form;
    form.load();
    const QString date = text(form, "lblmdate");
    const QStringList before = times(form);
    set_clock(22, 0, 1);
    form.timertime_event();
    EXPECT_EQ(text(form, "lblmtime"), QStringLiteral("Machine's Time: 00:01"));
    EXPECT_EQ(text(form, "lblmdate"), date);
    EXPECT_EQ(times(form), before);
    EXPECT_EQ(remaining(form), QString()) << "times of another day have no next one";
    form.reload();
    EXPECT_EQ(text(form, "lblmdate"),
              QStringLiteral("Machine's Date: Saturday, 22 June 2024 ( 15 Thul Hejjah 1445 )"));
}

// The clock shows 21 June 2024, 14 Thul Hejjah 1445 of the tabular calendar. The Umm al-Qura calendar has 1
// Thul Hejjah 1445 on 7 June 2024 (R. H. van Gent, The Umm al-Qura calendar of Saudi Arabia).
TEST_F(MainPanelTest, TheDateLinesTipTellsTheDayByTheKeptRule) {
    frmmain form;
    form.load();
    const QString line = text(form, "lblmdate");
    const auto hovered_tip = [&form] {
        auto& label = control<QLabel>(form, "lblmdate");
        QHelpEvent help(QEvent::ToolTip, QPoint(2, 2), label.mapToGlobal(QPoint(2, 2)));
        QApplication::sendEvent(&label, &help);
        QToolTip::hideText();
        return label.toolTip();
    };
    EXPECT_EQ(hovered_tip(), QString());
    HijriChoice choice;
    choice.rule = "umm-al-qura";
    keep_hijri_rule(choice);
    EXPECT_EQ(hovered_tip(), plain_tip(QStringLiteral("15 Thul Hejjah 1445 by Umm al-Qura")));
    EXPECT_EQ(text(form, "lblmdate"), line) << "the line stays tabular";
    set_clock(22, 0, 1);
    form.timertime_event();
    EXPECT_EQ(hovered_tip(), plain_tip(QStringLiteral("15 Thul Hejjah 1445 by Umm al-Qura")))
        << "as the line, it is of the day of the load";
    form.reload();
    EXPECT_EQ(control<QLabel>(form, "lblmdate").toolTip(),
              plain_tip(QStringLiteral("16 Thul Hejjah 1445 by Umm al-Qura")));
    set_language(Language::arabic);
    form.reload();
    EXPECT_EQ(control<QLabel>(form, "lblmdate").toolTip(),
              plain_tip(QStringLiteral("16 ذو الحجة 1445 حسب أم القرى")));
    forget_hijri_rule();
    EXPECT_EQ(hovered_tip(), QString());
}

TEST_F(MainPanelTest, ADamagedRuleOrAMissingFileGivesNoTipAndEndsNothing) {
    HijriChoice choice;
    choice.rule = "istanbul-2016";
    keep_hijri_rule(choice);
    frmmain form;
    form.load();
    EXPECT_NE(control<QLabel>(form, "lblmdate").toolTip(), QString());
    remove("world.txt");
    form.reload();
    EXPECT_EQ(control<QLabel>(form, "lblmdate").toolTip(), QString());
    put("hijri-rule.ini", "[rule]\nrule = nonsense\n");
    form.reload();
    EXPECT_EQ(control<QLabel>(form, "lblmdate").toolTip(), QString());
    choice.rule = "tabular";
    choice.announced = AnnouncedUse::whole;
    keep_hijri_rule(choice);
    put("hijri-announced.csv", "wrong\n");
    form.reload();
    EXPECT_EQ(control<QLabel>(form, "lblmdate").toolTip(), QString());
    EXPECT_FALSE(text(form, "lblmdate").isEmpty());
}

TEST_F(MainPanelTest, ShowsTodaysTimesOfTheStoredLocation) {
    frmmain form;
    form.load();
    EXPECT_EQ(text(form, "lbltloc"), QStringLiteral("Amman"));
    // Sunrise and sunset of Amman on 21 June 2024, standard time UT + 2, from the Swiss Ephemeris (upper
    // limb, refraction 34'): 04:30.9 and 18:45.4.
    EXPECT_EQ(text(form, "lbltshr"), QStringLiteral("04:31"));
    EXPECT_EQ(text(form, "lbltmag"), QStringLiteral("18:45"));
    EXPECT_EQ(times(form).filter(QStringLiteral(":")).size(), 6);
}

TEST_F(MainPanelTest, TheStoredDateDoesNotChooseTodaysDay) {
    frmmain form;
    form.load();
    const QStringList today = times(form);
    set_period({2020, 1, 1}, {2020, 1, 2});
    form.reload();
    EXPECT_EQ(times(form), today);
}

TEST_F(MainPanelTest, AtSeventyNorthInJuneTheWordsStandInPlaceOfTimes) {
    set_latitude(70);
    frmmain form;
    form.load();
    EXPECT_EQ(text(form, "lbltfaj"), QStringLiteral("Bright"));
    EXPECT_EQ(text(form, "lbltshr"), QStringLiteral("Up"));
    EXPECT_EQ(text(form, "lbltmag"), QStringLiteral("Up"));
}

TEST_F(MainPanelTest, TodaysTimesKnowNoHighLatitudeMethod) {
    set_latitude(55);
    Preferences preferences = read_pref();
    preferences.high_latitude = 1;
    write_pref(preferences);
    frmmain form;
    form.load();
    EXPECT_EQ(text(form, "lbltfaj"), QStringLiteral("Bright"));
    EXPECT_EQ(text(form, "lbltish"), QStringLiteral("Bright"));
}

TEST_F(MainPanelTest, TheNextPrayerIsSetApartWithItsRemainingTime) {
    frmmain form;
    form.load();
    const QString aser = text(form, "lbltasr");
    set_clock(21, QStringView(aser).left(2).toInt() - 1, QStringView(aser).mid(3, 2).toInt() - 5);
    form.timertime_event();
    EXPECT_EQ(text(form, "lblnasr"), QStringLiteral("in 1 h 5 min"));
    EXPECT_TRUE(control<QLabel>(form, "lbltasr").font().bold());
    EXPECT_FALSE(control<QLabel>(form, "lbltdoh").font().bold());
    EXPECT_NE(control<QLabel>(form, "lbltasr").palette().color(QPalette::WindowText),
              control<QLabel>(form, "lbltdoh").palette().color(QPalette::WindowText));
    EXPECT_EQ(control(form, "lbltasr").accessibleName(),
              QStringLiteral("Aser ") + aser + QStringLiteral(" in 1 h 5 min"));
}

TEST_F(MainPanelTest, TheRemainingTimeInArabic) {
    set_language(Language::arabic);
    frmmain form;
    form.load();
    const QString aser = text(form, "lbltasr");
    set_clock(21, QStringView(aser).left(2).toInt() - 1, QStringView(aser).mid(3, 2).toInt());
    form.timertime_event();
    EXPECT_EQ(text(form, "lblnasr"), QStringLiteral("بعد 1 س 0 د"));
}

TEST_F(MainPanelTest, TheRemainingTimeIsThatOfTheInstantWhateverTheMachinesZone) {
    set_zone(3);
    frmmain form;
    form.load();
    // One instant, 13:07 UT and so 16:07 at the place, on five clocks.
    const QString until_aser = after_seven_past_four(form);
    for (const double zone : {0.0, 2.0, 3.0, 5.5, -9.0}) {
        const MachineTime universal{2024, 6, 21, 13, 7, 0};
        set_machine_time(clock_at(seconds_of(universal) + zone * seconds_per_hour));
        set_machine_zone(zone);
        form.timertime_event();
        EXPECT_EQ(remaining(form), until_aser) << zone;
    }
}

TEST_F(MainPanelTest, TheRemainingTimeKnowsTheSummerHourOfTheLocation) {
    Preferences preferences = read_pref();
    preferences.summer_time = "1";
    write_pref(preferences);
    frmmain form;
    form.load();
    EXPECT_EQ(remaining(form), after_seven_past_four(form));
    EXPECT_EQ(text(form, "lblplaceclock"),
              QStringLiteral("Prayer times follow the location's clock, UTC+3: now 16:07"));
}

TEST_F(MainPanelTest, AfterIshaTheRemainingTimeCountsToTomorrowsFajer) {
    frmmain form;
    set_clock(22, 0, 10);
    form.load();
    const QString fajer = text(form, "lbltfaj");
    set_clock(21, 23, 0);
    form.load();
    const int minutes = 60 + QStringView(fajer).left(2).toInt() * 60 + QStringView(fajer).mid(3, 2).toInt();
    EXPECT_EQ(remaining(form),
              QStringLiteral("Fajer: tomorrow in %1 h %2 min").arg(minutes / 60).arg(minutes % 60));
    EXPECT_EQ(control(form, "lbltfaj").toolTip(), QStringLiteral("tomorrow Fajer ") + fajer);
    EXPECT_EQ(control(form, "lbltasr").toolTip(), QString());
}

TEST_F(MainPanelTest, TheClockOfTheLocationIsToldWhereTheMachinesDiffers) {
    frmmain form;
    form.load();
    EXPECT_FALSE(shown(form, "lblplaceclock"));
    set_machine_zone(-3.5); // 18:37 UT
    form.timertime_event();
    EXPECT_TRUE(shown(form, "lblplaceclock"));
    EXPECT_EQ(text(form, "lblplaceclock"),
              QStringLiteral("Prayer times follow the location's clock, UTC+2: now 20:37"));
    EXPECT_FALSE(shown(form, "lbltdate")) << "the date is the same on both";
    set_machine_zone(2);
    form.timertime_event();
    EXPECT_FALSE(shown(form, "lblplaceclock"));
}

TEST_F(MainPanelTest, ALocationThatHasAnotherDateIsToldWithItsDate) {
    set_machine_zone(-9); // 00:07 UT of the 22nd
    frmmain form;
    form.load();
    EXPECT_EQ(
        text(form, "lblplaceclock"),
        QStringLiteral("Prayer times follow the location's clock, UTC+2: now 02:07, Saturday, 22 June 2024"));
    EXPECT_TRUE(shown(form, "lbltdate"));
    EXPECT_EQ(text(form, "lbltdate"), QStringLiteral("These are of Friday, 21 June 2024"));
    EXPECT_FALSE(shown(form, "cmdtoday")) << "they are of the machine's date already";
    EXPECT_TRUE(remaining(form).startsWith(QStringLiteral("Fajer: 22/6 in ")))
        << remaining(form).toStdString();
}

TEST_F(MainPanelTest, AfterMidnightTheTimesTellTheirDateAndOneButtonLoadsTodays) {
    const Panel panels[] = {{"frmsample", "cmdqib", false, make_sample}};
    frmmain form(panels);
    form.load();
    form.show();
    EXPECT_FALSE(shown(form, "lbltdate"));
    EXPECT_FALSE(shown(form, "cmdtoday"));
    click(form, "cmdqib");
    const QStringList yesterdays = times(form);
    set_clock(23, 0, 1);
    form.timertime_event();
    EXPECT_TRUE(shown(form, "lbltdate"));
    EXPECT_EQ(text(form, "lbltdate"), QStringLiteral("These are of Friday, 21 June 2024"));
    EXPECT_EQ(times(form), yesterdays);
    EXPECT_TRUE(shown(form, "cmdtoday"));
    EXPECT_EQ(control<QPushButton>(form, "cmdtoday").shortcut(), QKeySequence(Qt::Key_F5));
    click(form, "cmdtoday");
    EXPECT_FALSE(shown(form, "lbltdate"));
    EXPECT_FALSE(shown(form, "cmdtoday"));
    EXPECT_NE(times(form), yesterdays);
    EXPECT_TRUE(text(form, "lblmdate").contains(QStringLiteral("23 June 2024")));
    EXPECT_TRUE(remaining(form).startsWith(QStringLiteral("Fajer: in "))) << remaining(form).toStdString();
    EXPECT_NE(open_window("frmsample"), nullptr) << "the other panels stay";
}

TEST_F(MainPanelTest, TheNewLinesAreArabicInArabic) {
    set_language(Language::arabic);
    frmmain form;
    form.load();
    set_clock(21, 23, 0);
    form.timertime_event();
    EXPECT_TRUE(remaining(form).startsWith(QStringLiteral("الفجر: غدا بعد ")))
        << remaining(form).toStdString();
    set_clock(22, 0, 1);
    set_machine_zone(0);
    form.timertime_event();
    EXPECT_EQ(text(form, "lbltdate"), QStringLiteral("هذه مواقيت الجمعة، 21 حزيران 2024"));
    EXPECT_EQ(text(form, "lblplaceclock"),
              QStringLiteral("المواقيت بتوقيت الموقع، \u2068UTC+2\u2069: الآن 02:01"));
    EXPECT_EQ(caption(form, "cmdtoday"), QStringLiteral("تحميل مواقيت اليوم (F5)"));
}

TEST_F(MainPanelTest, InArabicTheDateAndClockLinesHaveSizeTwelve) {
    set_language(Language::arabic);
    frmmain form;
    form.load();
    form.timertime_event();
    for (const char* name : {"lblmdate", "lblmtime"})
        EXPECT_EQ(control(form, name).font().pointSizeF(), 12) << name;
}

const char* const hostile_name = "<h1>A&B</h1>";

TEST_F(MainPanelTest, ANameIsTextAndNeverMarkup) {
    const auto height_of = [](const char* name) {
        write_loc(place_at({35, 56}, {31, 57}, 2, name));
        frmmain form;
        form.load();
        EXPECT_EQ(text(form, "lbltloc"), QString::fromUtf8(name));
        return control(form, "lbltloc").sizeHint().height();
    };
    EXPECT_EQ(height_of(hostile_name), height_of("Amman")) << "no heading is drawn";
}

TEST_F(MainPanelTest, EveryLabelOfThePanelTakesPlainText) {
    frmmain form;
    form.load();
    for (const QLabel* label : form.findChildren<QLabel*>())
        EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->objectName().toStdString();
}

TEST_F(MainPanelTest, ALongNameIsShortenedInItsMiddleAndLeavesThePanelItsWidth) {
    const auto width_with = [](const std::string& name) {
        write_loc(place_at({35, 56}, {31, 57}, 2, name.c_str()));
        frmmain form;
        form.load();
        form.show();
        QCoreApplication::processEvents();
        return form.width();
    };
    const std::string name = "Llan" + std::string(182, 'W') + "goch";
    EXPECT_EQ(width_with(name), width_with("Amman"));
    frmmain form;
    write_loc(place_at({35, 56}, {31, 57}, 2, name.c_str()));
    form.load();
    form.show();
    auto& label = control<NameLabel>(form, "lbltloc");
    EXPECT_EQ(label.text().toStdString(), name);
    EXPECT_TRUE(label.shown_text().startsWith(QStringLiteral("Llan")));
    EXPECT_TRUE(label.shown_text().endsWith(QStringLiteral("goch")));
    EXPECT_LE(label.fontMetrics().horizontalAdvance(label.shown_text()), label.width());
    QHelpEvent help(QEvent::ToolTip, QPoint(2, 2), label.mapToGlobal(QPoint(2, 2)));
    QApplication::sendEvent(&label, &help);
    EXPECT_EQ(QToolTip::text(), plain_tip(QString::fromStdString(name)));
    QToolTip::hideText();
}

TEST_F(MainPanelTest, HelpShowsTheHelpFile) {
    frmmain form;
    form.load();
    click(form, "cmdhel");
    EXPECT_EQ(platform_double.shown_files, std::vector<std::string>{"help.txt"});
}

TEST_F(MainPanelTest, HelpIsAskedForEvenWhenItsFileIsMissing) {
    remove("help.txt");
    frmmain form;
    form.load();
    click(form, "cmdhel");
    EXPECT_EQ(platform_double.shown_files, std::vector<std::string>{"help.txt"});
}

TEST_F(MainPanelTest, AButtonWithoutAPanelDoesNothing) {
    frmmain form;
    form.load();
    form.show();
    for (const char* name : {"cmddat", "cmdloc", "cmdpre", "cmdqib", "cmdale", "cmdpha", "cmdcresv",
                             "cmdtele", "cmdcon", "cmdcoor", "cmdmonths"})
        click(form, name);
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(platform_double.shown_files.empty());
    EXPECT_TRUE(messages.empty());
}

TEST_F(MainPanelTest, AModalPanelHoldsTheOthersUntilItIsClosed) {
    const Panel panels[] = {{"frmsample", "cmdpre", true, make_sample}};
    frmmain form(panels);
    form.load();
    form.show();
    bool was_modal = false;
    QTimer::singleShot(0, &form, [&] {
        QWidget* sample = open_window("frmsample");
        was_modal = sample != nullptr && sample->isModal();
        if (sample != nullptr)
            sample->close();
    });
    click(form, "cmdpre");
    EXPECT_TRUE(was_modal);
    EXPECT_EQ(open_window("frmsample"), nullptr);
}

TEST_F(MainPanelTest, ANonModalPanelStaysBesideTheMainPanelAndOpensOnce) {
    const Panel panels[] = {{"frmsample", "cmdqib", false, make_sample}};
    frmmain form(panels);
    form.load();
    form.show();
    click(form, "cmdqib");
    QWidget* first = open_window("frmsample");
    ASSERT_NE(first, nullptr);
    EXPECT_FALSE(first->isModal());
    click(form, "cmdqib");
    EXPECT_EQ(open_window("frmsample"), first);
}

TEST_F(MainPanelTest, ExitUnloadsEveryOpenForm) {
    const Panel panels[] = {{"frmsample", "cmdqib", false, make_sample}};
    frmmain form(panels);
    form.load();
    form.show();
    click(form, "cmdqib");
    click(form, "cmdext");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(open_window("frmsample"), nullptr);
}

TEST_F(MainPanelTest, TheCloseBoxDoesTheSameAsExit) {
    const Panel panels[] = {{"frmsample", "cmdqib", false, make_sample}};
    frmmain form(panels);
    form.load();
    form.show();
    click(form, "cmdqib");
    form.close();
    EXPECT_EQ(open_window("frmsample"), nullptr);
}

TEST_F(MainPanelTest, AReloadTakesUpTheLanguageAtOnceAndBack) {
    frmmain form;
    form.load();
    form.show();
    set_language(Language::arabic);
    reload_main_panel();
    EXPECT_EQ(caption(form, "fratoday"), QStringLiteral("مواقيت الصلاة"));
    EXPECT_EQ(form.layoutDirection(), Qt::RightToLeft);
    set_language(Language::english);
    reload_main_panel();
    EXPECT_EQ(caption(form, "fratoday"), QStringLiteral("Prayer Times"));
    EXPECT_EQ(caption(form, "lblby"), QStringLiteral("By Orlan Vesk"));
    EXPECT_EQ(form.layoutDirection(), Qt::LeftToRight);
    EXPECT_TRUE(form.isVisible());
}

TEST_F(MainPanelTest, AReloadShowsTheNewLocationAndItsTimes) {
    frmmain form;
    form.load();
    const QStringList before = times(form);
    write_loc(place_at({39, 49}, {21, 25}, 3, "Mecca"));
    reload_main_panel();
    EXPECT_EQ(text(form, "lbltloc"), QStringLiteral("Mecca"));
    EXPECT_NE(times(form), before);
}

TEST_F(MainPanelTest, AReloadReadsTheSeriesFilesAgain) {
    frmmain form;
    form.load();
    remove("term.vsk");
    EXPECT_THROW(reload_main_panel(), RunTimeFailure);
}

TEST_F(MainPanelTest, AReloadUnloadsTheOtherPanels) {
    const Panel panels[] = {{"frmsample", "cmdqib", false, make_sample}};
    frmmain form(panels);
    form.load();
    form.show();
    click(form, "cmdqib");
    reload_main_panel();
    EXPECT_EQ(open_window("frmsample"), nullptr);
    EXPECT_TRUE(form.isVisible());
}

TEST_F(MainPanelTest, PrayerTimesWritesItsReportAndShowsIt) {
    set_period({2024, 6, 1}, {2024, 6, 3});
    frmmain form;
    form.load();
    click(form, "cmdcom");
    EXPECT_EQ(platform_double.shown_files, std::vector<std::string>{"results.out"});
    const std::string report = content("results.out");
    EXPECT_NE(report.find("03/06/2024"), std::string::npos);
    EXPECT_NE(report.find("- Dark: The sky is always dark."), std::string::npos);
    EXPECT_EQ(open_window("frmwait"), nullptr);
}

TEST_F(MainPanelTest, MoonTimesWritesItsReportAndShowsIt) {
    set_period({2024, 6, 1}, {2024, 6, 3});
    frmmain form;
    form.load();
    click(form, "cmdmoon");
    EXPECT_EQ(platform_double.shown_files, std::vector<std::string>{"mresults.out"});
    EXPECT_NE(content("mresults.out").find("Moon Transit"), std::string::npos);
    EXPECT_FALSE(exists("results.out"));
}

TEST_F(MainPanelTest, TheReportsAreEnglishInBothLanguages) {
    frmmain form;
    form.load();
    click(form, "cmdcom");
    click(form, "cmdmoon");
    const std::string prayer = content("results.out");
    const std::string moon = content("mresults.out");
    set_language(Language::arabic);
    reload_main_panel();
    click(form, "cmdcom");
    click(form, "cmdmoon");
    EXPECT_EQ(content("results.out"), prayer);
    EXPECT_EQ(content("mresults.out"), moon);
}

TEST_F(MainPanelTest, AOneDayRunShowsAHundredPerCentAtOnceAndOneRow) {
    frmmain form;
    form.load();
    QString percent;
    int bar = -1;
    during_run(1, [&] {
        QWidget& wait = *open_window("frmwait");
        percent = text(wait, "lblpro1");
        bar = control<QProgressBar>(wait, "Pro1").value();
    });
    click(form, "cmdcom");
    EXPECT_EQ(percent, QStringLiteral("100 %"));
    EXPECT_EQ(bar, 100);
    EXPECT_NE(content("results.out").find("21/06/2024     "), std::string::npos);
}

TEST_F(MainPanelTest, CancelLeavesTheRowsSoFarWithTheRemarksAndShowsNothing) {
    set_period({2024, 1, 1}, {2024, 12, 31});
    frmmain form;
    form.load();
    QElapsedTimer since_cancel;
    during_run(20, [&] {
        since_cancel.start();
        click(*open_window("frmwait"), "bcancel");
    });
    click(form, "cmdcom");
    EXPECT_LT(since_cancel.elapsed(), 200);
    EXPECT_EQ(waitcancel, -1);
    EXPECT_TRUE(platform_double.shown_files.empty());
    EXPECT_EQ(open_window("frmwait"), nullptr);
    const std::string report = content("results.out");
    EXPECT_NE(report.find("\r\n02/01/2024"), std::string::npos);
    EXPECT_EQ(report.find("\r\n31/12/2024"), std::string::npos);
    EXPECT_NE(report.find("- Dark: The sky is always dark."), std::string::npos);
}

TEST_F(MainPanelTest, AfterACancelledRunTheNextOneRunsToItsEnd) {
    set_period({2024, 1, 1}, {2024, 2, 15});
    frmmain form;
    form.load();
    during_run(5, [] { click(*open_window("frmwait"), "bcancel"); });
    click(form, "cmdmoon");
    EXPECT_TRUE(platform_double.shown_files.empty());
    click(form, "cmdmoon");
    EXPECT_EQ(platform_double.shown_files, std::vector<std::string>{"mresults.out"});
    EXPECT_EQ(waitcancel, 0);
}

TEST_F(MainPanelTest, TheClockRunsDuringARun) {
    set_period({2024, 1, 1}, {2024, 2, 15});
    frmmain form;
    form.load();
    QString during;
    during_run(5, [&] {
        set_clock(21, 15, 9);
        form.timertime_event();
        during = text(form, "lblmtime");
    });
    click(form, "cmdcom");
    EXPECT_EQ(during, QStringLiteral("Machine's Time: 15:09"));
}

TEST_F(MainPanelTest, AnotherReportStartedDuringARunCompletesAndSoDoesTheFirst) {
    set_period({2024, 1, 1}, {2024, 2, 15});
    frmmain form;
    form.load();
    during_run(10, [&] { click(form, "cmdmoon"); });
    click(form, "cmdcom");
    EXPECT_EQ(platform_double.shown_files, (std::vector<std::string>{"mresults.out", "results.out"}));
    EXPECT_NE(content("results.out").find("\r\n15/02/2024"), std::string::npos);
    EXPECT_EQ(open_window("frmwait"), nullptr);
}

TEST_F(MainPanelTest, TheSameReportStartedTwiceIsWholeAtTheEnd) {
    set_period({2024, 1, 1}, {2024, 2, 15});
    frmmain form;
    form.load();
    click(form, "cmdcom");
    const std::string once = content("results.out");
    during_run(10, [&] { click(form, "cmdcom"); });
    click(form, "cmdcom");
    EXPECT_EQ(content("results.out"), once);
}

TEST_F(MainPanelTest, CancelEndsEveryRunUnderWay) {
    set_period({2024, 1, 1}, {2024, 12, 31});
    frmmain form;
    form.load();
    during_run(10, [&] {
        during_run(10, [] { click(*open_window("frmwait"), "bcancel"); });
        click(form, "cmdmoon");
    });
    click(form, "cmdcom");
    EXPECT_TRUE(platform_double.shown_files.empty());
    EXPECT_EQ(content("results.out").find("\r\n31/12/2024"), std::string::npos);
    EXPECT_EQ(content("mresults.out").find("\r\n31/12/2024"), std::string::npos);
}

TEST_F(MainPanelTest, AFontOfTheOtherLanguageGoesWithIt) {
    frmmain form;
    form.load();
    QWidget& head = control(form, "lblhead");
    QFont other = head.font();
    other.setFamily(QStringLiteral("Another Family"));
    head.setFont(other);
    reload_main_panel();
    EXPECT_EQ(head.font().families(), form.font().families());
}

TEST_F(MainPanelTest, ClosingTheMainPanelEndsTheRun) {
    set_period({2024, 1, 1}, {2024, 12, 31});
    frmmain form;
    form.load();
    form.show();
    during_run(10, [&] { form.close(); });
    click(form, "cmdcom");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(open_window("frmwait"), nullptr);
    EXPECT_TRUE(platform_double.shown_files.empty());
    EXPECT_NE(content("results.out").find("* Remarks:-"), std::string::npos);
}

TEST_F(MainPanelTest, AReloadDuringARunLeavesTheRunAlone) {
    set_period({2024, 1, 1}, {2024, 2, 15});
    frmmain form;
    form.load();
    click(form, "cmdcom");
    const std::string undisturbed = content("results.out");
    during_run(10, [] { reload_main_panel(); });
    click(form, "cmdcom");
    EXPECT_EQ(content("results.out"), undisturbed);
    EXPECT_EQ(platform_double.shown_files.size(), 2U);
}

TEST_F(MainPanelTest, AReloadDuringAHighLatitudeRunKeepsTheStoredAngles) {
    set_latitude(50);
    Preferences preferences = read_pref();
    preferences.high_latitude = 1;
    preferences.fajer_angle = preferences.isha_angle = 12;
    write_pref(preferences);
    frmmain form;
    form.load();
    const QStringList today = times(form);
    ASSERT_NE(today[0], QStringLiteral("Bright"));
    during_run(10, [] { reload_main_panel(); });
    click(form, "cmdcom");
    EXPECT_EQ(times(form), today);
}

TEST_F(MainPanelTest, AFailureInMidRunLeavesTheEarlierReportUntouched) {
    set_period({2024, 1, 1}, {2024, 1, 5});
    frmmain form;
    form.load();
    put("results.out", "an earlier report\r\n");
    Location location = read_loc();
    location.temperature = -273;
    write_loc(location);
    EXPECT_THROW(form.cmdcom_clicked(), RunTimeFailure);
    EXPECT_EQ(content("results.out"), "an earlier report\r\n");
    EXPECT_EQ(open_window("frmwait"), nullptr);
}

class MainPanelRefusal : public MainPanelTest, public ::testing::WithParamInterface<Language> {};

TEST_P(MainPanelRefusal, BeyondLatitudeSixtyFiveTellsThatTheMethodDoesNotWork) {
    set_latitude(66);
    Preferences preferences = read_pref();
    preferences.high_latitude = 1;
    preferences.set_language(GetParam());
    write_pref(preferences);
    frmmain form;
    form.load();
    click(form, "cmdcom");
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_TRUE(messages[0].exclamation);
    const bool english = GetParam() == Language::english;
    EXPECT_EQ(messages[0].title, english ? QStringLiteral("High-Latitude Error!") : QStringLiteral("خطأ"));
    EXPECT_EQ(
        messages[0].text,
        english
            ? QStringLiteral("The Alternative Method Does Not Work Above Latitude 65. Please Disable The "
                             "High-Latitude Alternative Method Calculations From The Preferences Menu!")
            : QStringLiteral("طريقة حساب المواقيت البديلة لا تصلح بعد خط عرض 65، يرجى عدم تفعيل خيار حساب "
                             "المواقيت البديلة لمناطق خطوط العرض العليا من قائمة الخيارات"));
    EXPECT_TRUE(platform_double.shown_files.empty());
    EXPECT_EQ(open_window("frmwait"), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Both, MainPanelRefusal, ::testing::ValuesIn(languages), language_name);

class MainPanelBothLanguages : public MainPanelTest, public ::testing::WithParamInterface<Language> {};

TEST_P(MainPanelBothLanguages, EveryControlIsNamedReachedAndWhole) {
    set_language(GetParam());
    frmmain form;
    form.load();
    expect_usable(form);
    expect_captions(form, frmmain_twins(), GetParam());
}

TEST_P(MainPanelBothLanguages, TheKeyboardAlonePressesAButton) {
    set_language(GetParam());
    frmmain form;
    form.load();
    form.show();
    QTest::keyClick(&control(form, "cmdhel"), Qt::Key_Space);
    EXPECT_EQ(platform_double.shown_files, std::vector<std::string>{"help.txt"});
}

INSTANTIATE_TEST_SUITE_P(In, MainPanelBothLanguages, ::testing::ValuesIn(languages), language_name);

TEST_F(MainPanelTest, DarkColoursKeepTheContrastOfTheMarkAndTheTitles) {
    const QPalette light = QApplication::palette();
    const auto luminance = [](const QColor& colour) {
        const auto part = [](double value) {
            return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) + 0.0722 * part(colour.blueF());
    };
    for (const QPalette& palette : {light, QPalette(QColor(0x2b, 0x2b, 0x2b), QColor(0x23, 0x23, 0x23))}) {
        QApplication::setPalette(palette);
        frmmain form;
        form.load();
        for (const char* name : {"lbltasr", "lblhasr", "lblnasr", "lblhdoh", "lbltdoh"}) {
            const QPalette& colours = control<QLabel>(form, name).palette();
            const double ink = luminance(colours.color(QPalette::WindowText));
            const double paper = luminance(colours.color(QPalette::Window));
            EXPECT_GE((std::max(ink, paper) + 0.05) / (std::min(ink, paper) + 0.05), 4.5) << name;
        }
    }
    QApplication::setPalette(light);
}

} // namespace
} // namespace halvane
