// SPDX-License-Identifier: MIT
#include "crescent/frmcresv.h"
#include "crescent/frmmap.h"
#include "ephemeris/series.h"
#include "panel/panelsupport.h"
#include "routines/crescentday.h"
#include "routines/machineclock.h"
#include "routines/seriesloader.h"
#include "stored/loc.h"
#include "stored/visib.h"
#include "tests/panel/panelchecks.h"
#include "tests/support/places.h"

#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <cmath>

namespace halvane {
namespace {

constexpr ControlText new_captions[] = {
    {"optconj", "The Day of Conjunction", "يوم الاقتران"},
    {"optone", "One Day After Conjunction", "يوم واحد بعد الاقتران"},
    {"opttwo", "Two Days After Conjunction", "يومان بعد الاقتران"},
    {"optsun", "Sunset", "غروب الشمس"},
    {"optmoon", "Moonset", "غروب القمر"},
};

constexpr ControlText old_captions[] = {
    {"optconj", "The Day of Conjunction", "يوم الاقتران"},
    {"optone", "One Day Before Conjunction", "يوم واحد قبل الاقتران"},
    {"opttwo", "Two Days Before Conjunction", "يومان قبل الاقتران"},
    {"optsun", "Sunrise", "شروق الشمس"},
    {"optmoon", "Moonrise", "شروق القمر"},
};

class CrescentPanel : public PanelTest {
protected:
    CrescentPanel() {
        load_series();
        write_visib(march_2025());
    }

    /// Choices for 29 March 2025, the day of a conjunction at 10:58 UT (Astronomical Almanac).
    static CrescentSettings march_2025() {
        CrescentSettings settings;
        settings.day = "29";
        settings.month = "3";
        settings.year = "2025";
        settings.hijri_month = 8;
        settings.hijri_year = "1446";
        return settings;
    }

    QStringList days(QWidget& form) {
        return {caption(form, "optconj"), caption(form, "optone"), caption(form, "opttwo")};
    }

    QStringList plain_days(bool is_new) {
        const QString side = is_new ? QStringLiteral("After") : QStringLiteral("Before");
        return {QStringLiteral("The Day of Conjunction"), QStringLiteral("One Day %1 Conjunction").arg(side),
                QStringLiteral("Two Days %1 Conjunction").arg(side)};
    }

    void expect_ready(QWidget& form) {
        EXPECT_TRUE(enabled(form, "cmdcalc"));
        EXPECT_TRUE(enabled(form, "cmdmap"));
        EXPECT_EQ(days(form)[0], QStringLiteral("29/03/2025  CE"));
    }

    void expect_reset(QWidget& form, const std::string& by) {
        EXPECT_FALSE(enabled(form, "cmdcalc")) << by;
        EXPECT_FALSE(enabled(form, "cmdmap")) << by;
        EXPECT_EQ(days(form), plain_days(checked<QRadioButton>(form, "optnew"))) << by;
        EXPECT_EQ(open_window("frmmap"), nullptr) << by;
    }
};

class CrescentCaption : public CrescentPanel, public ::testing::WithParamInterface<ControlText> {};
class OldCrescentCaption : public CrescentCaption {};

TEST_P(CrescentCaption, OfANewCrescentIsThatOfTheLanguage) {
    in_both_languages<frmcresv>(
        [](QWidget& form, Language language) { expect_caption(form, GetParam(), language); });
}

TEST_P(OldCrescentCaption, IsThatOfTheLanguage) {
    in_both_languages<frmcresv>([](QWidget& form, Language language) {
        click(form, "optold");
        expect_caption(form, GetParam(), language);
    });
}

INSTANTIATE_TEST_SUITE_P(Every, CrescentCaption, ::testing::ValuesIn(new_captions), caption_name);
INSTANTIATE_TEST_SUITE_P(Every, OldCrescentCaption, ::testing::ValuesIn(old_captions), caption_name);

TEST_F(CrescentPanel, BothLanguagesAreWholeReachableAndNamed) {
    in_both_languages<frmcresv>([](QWidget& form, Language language) {
        form.show();
        click(form, "cmdprev");
        expect_usable(form);
        expect_captions(form, frmcresv_twins(), language);
    });
}

TEST_F(CrescentPanel, TheHijriMonthsAreListedInBothLanguages) {
    const QStringList english{"Muharram",    "Safar",           "Rabeea' Awwal", "Rabeea' Thani",
                              "Jamada Aula", "Jamada Aakherah", "Rajab",         "Sha'ban",
                              "Ramadan",     "Shawwal",         "Thul Kea'deh",  "Thul Hejjah"};
    const QStringList arabic{"محرم", "صفر",   "ربيع أول", "ربيع ثاني", "جمادى الأولى", "جمادى الآخرة",
                             "رجب",  "شعبان", "رمضان",    "شوال",      "ذو القعدة",    "ذو الحجة"};
    in_both_languages<frmcresv>([&](QWidget& form, Language language) {
        EXPECT_EQ(entries(form, "cbomh"), language == Language::english ? english : arabic);
    });
}

TEST_F(CrescentPanel, AYearBeyondTheTheoriesIsToldInItsBoxAndFindsNoConjunction) {
    frmcresv form;
    form.show();
    for (const auto& [option, box] : {std::pair{"optgre", "txtyear"}, std::pair{"opthej", "txtyearh"}}) {
        click(form, option);
        messages.clear();
        enter(form, box, QStringLiteral("300000"));
        click(form, "cmdprev");
        ASSERT_EQ(messages.size(), 1U) << box;
        EXPECT_EQ(messages[0].title, QStringLiteral("Year Error"));
        EXPECT_TRUE(messages[0].text.contains(QStringLiteral("300000")));
        EXPECT_EQ(form.focusWidget(), &control(form, box));
        EXPECT_EQ(control<QLineEdit>(form, box).selectedText(), QStringLiteral("300000"));
        expect_reset(form, box);
    }
}

TEST_F(CrescentPanel, AStoredTimeThatIsNoClockIsToldAndNothingIsWritten) {
    CrescentSettings stored = march_2025();
    stored.at_best_time = false;
    stored.at_user_time = true;
    stored.user_hour = std::string(300, '9');
    write_visib(stored);
    frmcresv form;
    form.show();
    click(form, "cmdprev");
    click(form, "cmdcalc");
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].title, QStringLiteral("Time Error"));
    EXPECT_EQ(form.focusWidget(), &control(form, "cboh"));
    EXPECT_FALSE(exists("visib.out"));
}

TEST_F(CrescentPanel, EveryStoredFieldIsShown) {
    CrescentSettings stored;
    stored.day = "17";
    stored.month = "2";
    stored.year = "2026";
    stored.new_crescent = false;
    stored.geocentric = true;
    stored.one_day = false;
    stored.two_days = true;
    stored.at_best_time = false;
    stored.at_user_time = true;
    stored.user_hour = "5";
    stored.user_minute = "47";
    stored.gregorian = false;
    stored.hijri = true;
    stored.hijri_month = 11;
    stored.hijri_year = "1447";
    write_visib(stored);
    frmcresv form;
    EXPECT_EQ(chosen(form, "cboday"), QStringLiteral("17"));
    EXPECT_EQ(chosen(form, "cbomonth"), QStringLiteral("2"));
    EXPECT_EQ(text(form, "txtyear"), QStringLiteral("2026"));
    for (const char* name : {"optold", "optgeo", "opttwo", "optspe", "opthej"})
        EXPECT_TRUE(checked<QRadioButton>(form, name)) << name;
    for (const char* name :
         {"optnew", "opttopo", "optconj", "optone", "optsun", "optmoon", "optbest", "optgre"})
        EXPECT_FALSE(checked<QRadioButton>(form, name)) << name;
    EXPECT_EQ(chosen(form, "cboh"), QStringLiteral("5"));
    EXPECT_EQ(chosen(form, "cbom"), QStringLiteral("47"));
    EXPECT_EQ(chosen(form, "cbomh"), QStringLiteral("Thul Hejjah"));
    EXPECT_EQ(text(form, "txtyearh"), QStringLiteral("1447"));
}

TEST_F(CrescentPanel, EachDayAndTimeIsShownAlone) {
    const std::pair<bool CrescentSettings::*, const char*> days[] = {
        {&CrescentSettings::day_of_conjunction, "optconj"},
        {&CrescentSettings::one_day, "optone"},
        {&CrescentSettings::two_days, "opttwo"}};
    const std::pair<bool CrescentSettings::*, const char*> times[] = {
        {&CrescentSettings::at_sun, "optsun"},
        {&CrescentSettings::at_moon, "optmoon"},
        {&CrescentSettings::at_best_time, "optbest"},
        {&CrescentSettings::at_user_time, "optspe"}};
    for (const auto& [day, day_option] : days)
        for (const auto& [time, time_option] : times) {
            CrescentSettings stored = march_2025();
            stored.one_day = stored.at_best_time = false;
            stored.*day = stored.*time = true;
            write_visib(stored);
            frmcresv form;
            EXPECT_TRUE(checked<QRadioButton>(form, day_option)) << day_option;
            EXPECT_TRUE(checked<QRadioButton>(form, time_option)) << time_option;
        }
}

TEST_F(CrescentPanel, WithNoDayOrTimeStoredTheFirstStands) {
    CrescentSettings stored = march_2025();
    stored.one_day = stored.at_best_time = false;
    write_visib(stored);
    frmcresv form;
    EXPECT_TRUE(checked<QRadioButton>(form, "optconj"));
    EXPECT_TRUE(checked<QRadioButton>(form, "optsun"));
}

TEST_F(CrescentPanel, ACalendarThatIsNotGregorianIsHijri) {
    CrescentSettings stored = march_2025();
    stored.gregorian = stored.hijri = false;
    write_visib(stored);
    frmcresv form;
    EXPECT_TRUE(checked<QRadioButton>(form, "opthej"));
}

TEST_F(CrescentPanel, OnlyTheChosenCalendarTakesEntries) {
    frmcresv form;
    for (const bool hijri : {false, true}) {
        click(form, hijri ? "opthej" : "optgre");
        for (const char* name : {"cboday", "cbomonth", "txtyear"})
            EXPECT_EQ(enabled(form, name), !hijri) << name;
        for (const char* name : {"cbomh", "txtyearh"})
            EXPECT_EQ(enabled(form, name), hijri) << name;
    }
}

TEST_F(CrescentPanel, TheUserTimeTakesEntriesOnlyWhileItIsChosen) {
    frmcresv form;
    for (const char* option : {"optsun", "optspe", "optmoon", "optspe", "optbest"}) {
        click(form, option);
        for (const char* name : {"lblh", "lblm", "cboh", "cbom"})
            EXPECT_EQ(enabled(form, name), std::string(option) == "optspe") << name;
    }
}

TEST_F(CrescentPanel, FocusSelectsTheWholeText) {
    frmcresv form;
    for (const char* name : {"txtyear", "txtyearh"})
        expect_focus_selects_text(form, name);
}

TEST_F(CrescentPanel, AtLoadNothingCanBeCalculated) {
    frmcresv form;
    expect_reset(form, "load");
}

TEST_F(CrescentPanel, TheConjunctionGivesThreeDatesAndEnablesTheButtons) {
    frmcresv form;
    click(form, "cmdprev");
    expect_ready(form);
    EXPECT_EQ(days(form), (QStringList{"29/03/2025  CE", "30/03/2025  CE", "31/03/2025  CE"}));
}

TEST_F(CrescentPanel, AnOldCrescentIsOfferedTheDaysBefore) {
    frmcresv form;
    click(form, "optold");
    click(form, "cmdprev");
    EXPECT_EQ(days(form), (QStringList{"29/03/2025  CE", "28/03/2025  CE", "27/03/2025  CE"}));
}

TEST_F(CrescentPanel, InArabicTheDatesKeepTheirOrder) {
    set_language(Language::arabic);
    frmcresv form;
    click(form, "cmdprev");
    EXPECT_EQ(days(form)[0], isolated(QStringLiteral("29/03/2025  CE")));
    EXPECT_EQ(days(form)[2], isolated(QStringLiteral("31/03/2025  CE")));
}

TEST_F(CrescentPanel, AHijriMonthEndsAMonthAfterItsStart) {
    frmcresv form;
    click(form, "opthej");
    click(form, "cmdprev");
    EXPECT_EQ(days(form)[0], QStringLiteral("28/02/2025  CE"));
    click(form, "optold");
    click(form, "cmdprev");
    EXPECT_EQ(days(form)[0], QStringLiteral("29/03/2025  CE"));
}

TEST_F(CrescentPanel, FindingTheConjunctionWritesNoFile) {
    const std::string before = content("visib.vsk");
    frmcresv form;
    choose(form, "cboday", QStringLiteral("27"));
    click(form, "cmdprev");
    EXPECT_EQ(content("visib.vsk"), before);
    EXPECT_FALSE(exists("visib.out"));
}

// New Moon on 2025 April 27, 19:31 UT (Astronomical Almanac).
TEST_F(CrescentPanel, NextCrescentTakesTheMachinesDateAndFindsWithoutStoring) {
    set_machine_time({2025, 4, 3, 9, 0, 0});
    const std::string before = content("visib.vsk");
    for (const char* calendar : {"optgre", "opthej"})
        for (const char* kind : {"optnew", "optold"}) {
            frmcresv form;
            click(form, calendar);
            click(form, kind);
            click(form, "cmdnext");
            EXPECT_EQ(days(form)[0], QStringLiteral("27/04/2025  CE")) << calendar << kind;
            EXPECT_TRUE(enabled(form, "cmdcalc"));
            EXPECT_EQ(chosen(form, "cboday"), QStringLiteral("27"));
            EXPECT_EQ(chosen(form, "cbomonth"), QStringLiteral("4"));
            EXPECT_EQ(text(form, "txtyear"), QStringLiteral("2025"));
            const QString month =
                kind == std::string("optnew") ? QStringLiteral("Thul Kea'deh") : QStringLiteral("Shawwal");
            EXPECT_EQ(chosen(form, "cbomh"), month);
            EXPECT_EQ(text(form, "txtyearh"), QStringLiteral("1446"));
            EXPECT_TRUE(caption(form, "lblfound").contains(month));
        }
    EXPECT_EQ(content("visib.vsk"), before);
    EXPECT_FALSE(exists("visib.out"));
}

TEST_F(CrescentPanel, TheWordsOfTheConjunctionComeAndGoWithIt) {
    in_both_languages<frmcresv>([](QWidget& form, Language language) {
        form.show();
        const QString before = caption(form, "lblfound");
        const int width = form.width();
        click(form, "cmdprev");
        QCoreApplication::processEvents();
        const QString words = caption(form, "lblfound");
        EXPECT_TRUE(words.contains(language == Language::english ? QStringLiteral("Saturday")
                                                                 : QStringLiteral("السبت")));
        EXPECT_EQ(cut_texts(form), QStringList());
        EXPECT_EQ(form.width(), width);
        click(form, "optold");
        EXPECT_EQ(caption(form, "lblfound"), before);
    });
}

TEST_F(CrescentPanel, EveryChangeOfTheDateOrTheKindTakesTheConjunctionBack) {
    frmcresv form;
    const auto expect_reset_by = [&](const char* name, const auto& change) {
        click(form, "cmdprev");
        ASSERT_TRUE(enabled(form, "cmdcalc")) << name;
        change();
        expect_reset(form, name);
    };
    expect_reset_by("cboday", [&] { choose(form, "cboday", QStringLiteral("28")); });
    expect_reset_by("cbomonth", [&] { choose(form, "cbomonth", QStringLiteral("4")); });
    expect_reset_by("txtyear", [&] { enter(form, "txtyear", QStringLiteral("2024")); });
    expect_reset_by("optold", [&] { click(form, "optold"); });
    expect_reset_by("optnew", [&] { click(form, "optnew"); });
    expect_reset_by("opthej", [&] { click(form, "opthej"); });
    expect_reset_by("cbomh", [&] { choose(form, "cbomh", QStringLiteral("Shawwal")); });
    expect_reset_by("txtyearh", [&] { enter(form, "txtyearh", QStringLiteral("1445")); });
    expect_reset_by("optgre", [&] { click(form, "optgre"); });
    expect_reset_by("opttopo", [&] { click(form, "opttopo"); });
    expect_reset_by("optgeo", [&] { click(form, "optgeo"); });
}

TEST_F(CrescentPanel, ADayOrATimeKeepsTheConjunction) {
    frmcresv form;
    click(form, "cmdprev");
    for (const char* name : {"opttwo", "optone", "optconj", "optsun", "optmoon", "optspe", "optbest"}) {
        click(form, name);
        expect_ready(form);
    }
}

// The parallax brings the topocentric conjunction of Amman forward by about two hours: `conjunctionstart`
// tells that the search has run by the reference just chosen.
TEST_F(CrescentPanel, AChangeOfTheReferenceSearchesAnewAndLeavesTheButtonsDisabled) {
    frmcresv form;
    click(form, "cmdprev");
    const double topocentric = conjunctionstart;
    click(form, "optgeo");
    EXPECT_GT(std::abs(conjunctionstart - topocentric), 0.01);
    EXPECT_LT(std::abs(conjunctionstart - topocentric), 0.15);
    expect_reset(form, "optgeo");
}

TEST_F(CrescentPanel, EnterFindsTheConjunctionAndThenCalculates) {
    frmcresv form;
    form.show();
    EXPECT_TRUE(control<QPushButton>(form, "cmdprev").isDefault());
    QTest::keyClick(&control(form, "txtyear"), Qt::Key_Return);
    expect_ready(form);
    EXPECT_TRUE(control<QPushButton>(form, "cmdcalc").isDefault());
    QTest::keyClick(&control(form, "txtyear"), Qt::Key_Return);
    EXPECT_EQ(platform_double.shown_files, std::vector<std::string>{"visib.out"});
}

TEST_F(CrescentPanel, CalculateStoresTheChoicesAndShowsTheReport) {
    frmcresv form;
    click(form, "cmdprev");
    click(form, "opttwo");
    click(form, "optspe");
    choose(form, "cboh", QStringLiteral("19"));
    choose(form, "cbom", QStringLiteral("5"));
    click(form, "cmdcalc");
    CrescentSettings expected = march_2025();
    expected.one_day = false;
    expected.two_days = true;
    expected.at_best_time = false;
    expected.at_user_time = true;
    expected.user_hour = "19";
    expected.user_minute = "5";
    EXPECT_EQ(read_visib(), expected);
    EXPECT_EQ(platform_double.shown_files, std::vector<std::string>{"visib.out"});
    const std::string report = content("visib.out");
    EXPECT_NE(report.find("- Calculations for Shawwal 1446 AH Waxing Crescent (New, Evening).\r\n"),
              std::string::npos);
    EXPECT_NE(report.find("- Crescent Visibility on: Monday  31/03/2025 CE\r\n"), std::string::npos);
    EXPECT_NE(report.find("- Calculations are Done at User Time at:  19:05 LT\r\n"), std::string::npos);
    EXPECT_NE(report.find("- Calculations are Topocentric.\r\n"), std::string::npos);
}

TEST_F(CrescentPanel, TheReportComesWithTheShortAnswerOfItsDay) {
    frmcresv form;
    click(form, "cmdprev");
    click(form, "opttwo");
    click(form, "cmdcalc");
    ASSERT_NE(platform_double.shown_run, nullptr);
    const TwinWords answer = platform_double.shown_run->short_answer();
    EXPECT_EQ(answer.english.find("Evening of Monday 31 March 2025, "), 0U) << answer.english;
    EXPECT_EQ(answer.arabic.find("مساء الاثنين 31 آذار 2025، "), 0U) << answer.arabic;
    EXPECT_EQ(content("visib.out").find(answer.english), std::string::npos);
}

TEST_F(CrescentPanel, ATimeBeforeTheConjunctionIsNoError) {
    frmcresv form;
    click(form, "cmdprev");
    click(form, "optconj");
    click(form, "optspe");
    choose(form, "cboh", QStringLiteral("1"));
    choose(form, "cbom", QStringLiteral("0"));
    click(form, "cmdcalc");
    const std::string report = content("visib.out");
    const std::size_t age = report.find("Moon Age:");
    ASSERT_NE(age, std::string::npos);
    EXPECT_NE(report.substr(age, report.find('\r', age) - age).find('-'), std::string::npos);
    EXPECT_TRUE(messages.empty());
}

TEST_F(CrescentPanel, ADayWithoutMoonsetLeavesTheShortReport) {
    write_loc(place_at({18, 57}, {69, 39}, 1, "Tromso"));
    CrescentSettings april = march_2025();
    april.day = "1";
    april.month = "4";
    april.year = "2024";
    april.one_day = false;
    april.two_days = true;
    write_visib(april);
    frmcresv form;
    click(form, "cmdprev");
    click(form, "cmdcalc");
    EXPECT_EQ(platform_double.shown_files, std::vector<std::string>{"visib.out"});
    const std::string words =
        "Crescent Visibility calculations on this day from this location need careful \r\n"
        "technique, because there is no Sunset/Sunrise and/or Moonset/Moonrise event(s).\r\n";
    const std::string report = content("visib.out");
    ASSERT_GE(report.size(), words.size());
    EXPECT_EQ(report.substr(report.size() - words.size()), words);
}

// The Sun of 16 June 2015 does not set at 67 degrees north: the sunrise found last in the program stands.
TEST_F(CrescentPanel, ADayWithoutSunriseTakesThatOfAnotherOpenPanel) {
    crescentevents = {};
    const auto polar = place_at({25, 0}, {67, 0}, 2, "Kittila");
    const auto amman = read_loc();
    CrescentSettings june = march_2025();
    june.day = "16";
    june.month = "6";
    june.year = "2015";
    june.new_crescent = false;
    write_visib(june);
    const auto calculated = [this](frmcresv& form, const Location& place) {
        write_loc(place);
        click(form, "cmdprev");
        click(form, "cmdcalc");
        return content("visib.out");
    };
    const auto sunrise = [](const std::string& report) {
        const std::size_t start = report.find("- Sunrise:");
        return start == std::string::npos ? std::string() : report.substr(start, 30);
    };
    frmcresv first;
    EXPECT_EQ(sunrise(calculated(first, polar)), "");
    const std::string found = sunrise(calculated(first, amman));
    EXPECT_NE(found, "");
    frmcresv second;
    EXPECT_EQ(sunrise(calculated(second, polar)), found);
}

TEST_F(CrescentPanel, TheReportIsEnglishInBothLanguages) {
    frmcresv english;
    click(english, "cmdprev");
    click(english, "cmdcalc");
    const std::string report = content("visib.out");
    set_language(Language::arabic);
    frmcresv arabic;
    click(arabic, "cmdprev");
    click(arabic, "cmdcalc");
    EXPECT_EQ(content("visib.out"), report);
}

TEST_F(CrescentPanel, CloseStoresWhatIsShown) {
    frmcresv form;
    form.show();
    choose(form, "cboday", QStringLiteral("5"));
    choose(form, "cbomonth", QStringLiteral("12"));
    enter(form, "txtyear", QStringLiteral("1990 CE"));
    click(form, "optold");
    click(form, "optgeo");
    click(form, "optconj");
    click(form, "optmoon");
    click(form, "opthej");
    choose(form, "cbomh", QStringLiteral("Safar"));
    enter(form, "txtyearh", QStringLiteral("1411"));
    click(form, "cmdclose");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(content("visib.vsk"),
              "\"5\",\"12\",\"1990 CE\",#FALSE#,#TRUE#,#TRUE#,#FALSE#,#FALSE#,#FALSE#,#TRUE#,#FALSE#,#FALSE#,"
              "\"18\",\"0\",#FALSE#,#TRUE#,1,\"1411\"\r\n");
}

TEST_F(CrescentPanel, WhatIsStoredComesBackUnchanged) {
    CrescentSettings stored = march_2025();
    stored.day = "07";
    stored.user_minute = "3x";
    write_visib(stored);
    frmcresv form;
    click(form, "cmdclose");
    EXPECT_EQ(read_visib(), stored);
}

TEST_F(CrescentPanel, EscapeClosesAndStoresNothing) {
    expect_escape_stores_nothing<frmcresv>("visib.vsk", [](QWidget& form) { click(form, "optold"); });
}

TEST_F(CrescentPanel, TheMapOpensWithoutWaitingAfterTheChoicesAreStored) {
    frmcresv form;
    form.show();
    click(form, "optold");
    click(form, "cmdprev");
    click(form, "cmdmap");
    QWidget* map = open_window("frmmap");
    ASSERT_NE(map, nullptr);
    EXPECT_FALSE(map->isModal());
    EXPECT_EQ(map->parentWidget(), &form);
    EXPECT_FALSE(read_visib().new_crescent);
    EXPECT_EQ(crescentkind, CrescentKind::old_crescent);
    EXPECT_EQ(caption(*map, "opt1"), QStringLiteral("28 March 2025"));
}

// Any panel's: the New Moon of 27 April 2025, 19:31 UT (Astronomical Almanac).
TEST_F(CrescentPanel, TheMapOpensOnTheConjunctionFoundLast) {
    frmcresv first;
    first.show();
    click(first, "cmdprev");
    frmcresv second;
    choose(second, "cbomonth", QStringLiteral("4"));
    click(second, "optold");
    click(second, "cmdprev");
    click(first, "cmdmap");
    QWidget* map = open_window("frmmap");
    ASSERT_NE(map, nullptr);
    EXPECT_EQ(caption(*map, "opt0"), QStringLiteral("27 April 2025"));
    EXPECT_EQ(caption(*map, "opt1"), QStringLiteral("28 April 2025"))
        << "the kind is of the panel that opens it";
}

TEST_F(CrescentPanel, TheMapOpensOnTheDayChosen) {
    frmcresv form;
    form.show();
    click(form, "cmdprev");
    click(form, "opttwo");
    click(form, "cmdmap");
    QWidget* map = open_window("frmmap");
    ASSERT_NE(map, nullptr);
    EXPECT_TRUE(checked<QRadioButton>(*map, "opt2"));
    click(*map, "opt0");
    click(form, "cmdmap");
    EXPECT_TRUE(checked<QRadioButton>(*map, "opt0")) << "the map's own choice stays";
    click(form, "optone");
    click(form, "cmdmap");
    EXPECT_TRUE(checked<QRadioButton>(*map, "opt1"));
}

TEST_F(CrescentPanel, AnOpenMapIsNotOpenedTwice) {
    frmcresv form;
    form.show();
    click(form, "cmdprev");
    click(form, "cmdmap");
    QWidget* first = open_window("frmmap");
    click(form, "cmdmap");
    EXPECT_EQ(open_window("frmmap"), first);
    EXPECT_EQ(form.findChildren<frmmap*>().size(), 1);
}

TEST_F(CrescentPanel, TheMapIsClosedByASearchAResetAndTheEndOfThePanel) {
    frmcresv form;
    form.show();
    for (const char* by : {"cmdprev", "optold", "cmdclose"}) {
        click(form, "cmdprev");
        click(form, "cmdmap");
        ASSERT_NE(open_window("frmmap"), nullptr) << by;
        click(form, by);
        EXPECT_EQ(open_window("frmmap"), nullptr) << by;
    }
}

/// A click as the window system delivers it: a window that waits for another one does not get it.
void click_in_window(QWidget& control) {
    QWidget& window = *control.window();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {},
                      control.mapTo(&window, control.rect().center()));
    QCoreApplication::processEvents();
}

TEST_F(CrescentPanel, TheReportAndTheMapTakeInputWhileTheMainPanelWaits) {
    set_platform(nullptr);
    QPushButton owner(QStringLiteral("main"));
    int presses = 0;
    QObject::connect(&owner, &QPushButton::clicked, &owner, [&presses] { ++presses; });
    owner.show();
    click_in_window(owner);
    ASSERT_EQ(presses, 1);
    bool tried = false;
    QTimer::singleShot(0, &owner, [&] {
        QWidget& form = *open_window("frmcresv");
        click_in_window(owner);
        EXPECT_EQ(presses, 1);
        click_in_window(control(form, "cmdprev"));
        click_in_window(control(form, "cmdcalc"));
        QWidget* report = open_window("viewer");
        ASSERT_NE(report, nullptr);
        click_in_window(control(*report, "cmdclose"));
        EXPECT_EQ(open_window("viewer"), nullptr);
        click_in_window(control(form, "cmdmap"));
        QWidget* map = open_window("frmmap");
        ASSERT_NE(map, nullptr);
        click_in_window(control(*map, "cmdclose"));
        EXPECT_EQ(open_window("frmmap"), nullptr);
        click_in_window(control(form, "cmdclose"));
        tried = true;
    });
    open_panel({"frmcresv", "cmdcresv", true, make_panel<frmcresv>}, &owner);
    EXPECT_TRUE(tried);
    click_in_window(owner);
    EXPECT_EQ(presses, 2);
}

TEST_F(CrescentPanel, AMissingRecordIsAFailure) {
    remove("visib.vsk");
    EXPECT_ANY_THROW(frmcresv form);
}

} // namespace
} // namespace halvane
