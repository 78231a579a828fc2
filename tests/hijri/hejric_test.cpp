// SPDX-License-Identifier: MIT
#include "base/failure.h"
#include "hijri/frmhej.h"
#include "tests/panel/panelchecks.h"

#include <QApplication>
#include <QFocusEvent>
#include <QFontDatabase>
#include <QLineEdit>

#include <QPushButton>
#include <functional>

namespace halvane {
namespace {

constexpr ControlText captions[] = {
    {"frmhej", "Hejric-Gregorian Conversion", "Hejric-Gregorian Conversion"},
    {"frahej", "Conversion", "تحويل"},
    {"opthtg", "Convert Hejric to Gregorian", "التحويل من هجري إلى ميلادي"},
    {"optgth", "Convert Gregorian to Hejric", "التحويل من ميلادي إلى هجري"},
    {"lblhej", "Please enter the date you wish to convert", "الرجاء إدخال التاريخ الذي ترغب بتحويله"},
    {"lbly", "Year:", "السنة"},
    {"lblm", "Month:", "الشهر"},
    {"lbld", "Day:", "اليوم"},
    {"lblres", "The Corresponding Date is:", "التاريخ الموافق هو"},
    {"lbler", "One-day difference is possible", "من المحتمل وجود فارق بمقدار يوم واحد"},
    {"lblvis", "Date Conversion is NOT based on Crescent Visibility ",
     "تحويل التواريخ لا يعتمد على رؤية الهلال"},
    {"cmdcon", "Con&vert", "&تحويل"},
    {"cmdcan", "&Cancel", "&خروج"},
};

constexpr const char* results[] = {"lbldt", "lblmt", "lblyt", "lblday"};

class HejricTest : public PanelTest {
protected:
    QString year(QWidget& form) { return text(form, "txty"); }
    void convert(QWidget& form, const QString& of_year, const QString& month, const QString& day) {
        enter(form, "txty", of_year);
        choose(form, "cbom", month);
        choose(form, "cbod", day);
        click(form, "cmdcon");
    }
    void expect_result(QWidget& form, const char* day, const char* month, const char* of_year,
                       const char* weekday) {
        EXPECT_EQ(caption(form, "lbldt"), day);
        EXPECT_EQ(caption(form, "lblmt"), month);
        EXPECT_EQ(caption(form, "lblyt"), of_year);
        EXPECT_EQ(caption(form, "lblday"), weekday);
        for (const char* name : results)
            EXPECT_TRUE(control(form, name).isVisibleTo(&form)) << name;
    }
    void expect_refused(QWidget& form, const char* title, const char* words, const char* focused) {
        ASSERT_FALSE(messages.empty());
        expect_warning(messages.back(), title, words);
        EXPECT_EQ(form.focusWidget(), &control(form, focused));
    }
};

TEST_F(HejricTest, EveryCaptionStandsInEnglish) {
    frmhej form;
    expect_captions(form, captions, Language::english);
}

TEST_F(HejricTest, EveryCaptionStandsInArabicRightToLeft) {
    set_language(Language::arabic);
    frmhej form;
    expect_captions(form, captions, Language::arabic);
    EXPECT_TRUE(control(form, "frahej").isRightToLeft());
}

TEST_F(HejricTest, ThePanelOpensWithTheHijriLists) {
    frmhej form;
    EXPECT_TRUE(control<QAbstractButton>(form, "opthtg").isChecked());
    EXPECT_EQ(entries(form, "cbom"), (QStringList{"Muharram", "Safar", "Rabeea' Awwal", "Rabeea' Thani",
                                                  "Jamada Aula", "Jamada Aakherah", "Rajab", "Sha'ban",
                                                  "Ramadan", "Shawwal", "Thul Kea'deh", "Thul Hejjah"}));
    EXPECT_EQ(chosen(form, "cbom"), "Muharram");
    EXPECT_EQ(entries(form, "cbod").size(), 30);
    EXPECT_EQ(chosen(form, "cbod"), "1");
    EXPECT_EQ(year(form), "1435");
    for (const char* name : results)
        EXPECT_FALSE(control(form, name).isVisibleTo(&form)) << name;
}

TEST_F(HejricTest, EachOptionFillsTheListsAndTheYear) {
    frmhej form;
    form.show();
    click(form, "optgth");
    EXPECT_EQ(entries(form, "cbom"),
              (QStringList{"January", "February", "March", "April", "May", "June", "July", "August",
                           "September", "October", "November", "December"}));
    EXPECT_EQ(chosen(form, "cbom"), "January");
    EXPECT_EQ(entries(form, "cbod").size(), 31);
    EXPECT_EQ(entries(form, "cbod").last(), "31");
    EXPECT_EQ(chosen(form, "cbod"), "1");
    EXPECT_EQ(year(form), "2013");
    choose(form, "cbom", "May");
    click(form, "opthtg");
    EXPECT_EQ(chosen(form, "cbom"), "Muharram");
    EXPECT_EQ(entries(form, "cbod").last(), "30");
    EXPECT_EQ(year(form), "1435");
}

TEST_F(HejricTest, TheListsAreArabicInArabic) {
    set_language(Language::arabic);
    frmhej form;
    form.show();
    EXPECT_EQ(chosen(form, "cbom"), "محرم");
    click(form, "optgth");
    EXPECT_EQ(entries(form, "cbom"),
              (QStringList{"كانون ثاني", "شباط", "آذار", "نيسان", "أيار", "حزيران", "تموز", "آب", "أيلول",
                           "تشرين أول", "تشرين ثاني", "كانون أول"}));
}

TEST_F(HejricTest, AHijriDateIsShownAsItsCivilDate) {
    frmhej form;
    form.show();
    convert(form, "1", "Muharram", "1");
    expect_result(form, "16", "July", "622", "Friday");
    convert(form, "1442", "Ramadan", "20");
    expect_result(form, "2", "May", "2021", "Sunday");
    EXPECT_TRUE(messages.empty());
}

TEST_F(HejricTest, ACivilDateIsShownAsItsHijriDate) {
    frmhej form;
    form.show();
    click(form, "optgth");
    convert(form, "622", "July", "16");
    expect_result(form, "1", "Muharram", "1", "Friday");
    convert(form, "2021", "May", "2");
    expect_result(form, "20", "Ramadan", "1442", "Sunday");
}

TEST_F(HejricTest, TheResultsAreArabicInArabicAndAMissingFontIsPassedOver) {
    set_language(Language::arabic);
    frmhej form;
    form.show();
    const QString family = control(form, "lblmt").font().family();
    convert(form, "1442", "رمضان", "20");
    expect_result(form, "2", "أيار", "2021", "الأحد");
    if (QFontDatabase::hasFamily("Simplified Arabic"))
        EXPECT_EQ(control(form, "lblmt").font().pointSizeF(), 14);
    else
        EXPECT_EQ(control(form, "lblmt").font().family(), family);
    click(form, "optgth");
    convert(form, "2021", "أيار", "2");
    expect_result(form, "20", "رمضان", "1442", "الأحد");
}

TEST_F(HejricTest, TheNeighboursOfTheCalendarGapAreAccepted) {
    frmhej form;
    form.show();
    click(form, "optgth");
    convert(form, "1582", "October", "4");
    expect_result(form, "16", "Ramadan", "990", "Thursday");
    convert(form, "1582", "October", "15");
    expect_result(form, "17", "Ramadan", "990", "Friday");
    EXPECT_TRUE(messages.empty());
}

TEST_F(HejricTest, AResultDoesNotStayBesideAnotherDate) {
    const auto shown = [](QWidget& form) {
        int count = 0;
        for (const char* name : results)
            count += control(form, name).isVisibleTo(&form) ? 1 : 0;
        return count;
    };
    const std::function<void(QWidget&)> changes[] = {
        [](QWidget& form) { enter(form, "txty", "1443"); },
        [](QWidget& form) { choose(form, "cbom", "Shawwal"); },
        [](QWidget& form) { choose(form, "cbod", "21"); },
        [](QWidget& form) { click(form, "optgth"); },
    };
    for (const auto& change : changes) {
        frmhej form;
        form.show();
        convert(form, "1442", "Ramadan", "20");
        EXPECT_EQ(shown(form), 4);
        change(form);
        EXPECT_EQ(shown(form), 0);
    }
}

TEST_F(HejricTest, AResultOfArabicDigitsStaysWhenTheFocusLeaves) {
    frmhej form;
    form.show();
    convert(form, "١٤٤٢", "Ramadan", "20");
    expect_result(form, "2", "May", "2021", "Sunday");
    QFocusEvent leave(QEvent::FocusOut, Qt::TabFocusReason);
    QApplication::sendEvent(&control(form, "txty"), &leave);
    EXPECT_EQ(text(form, "txty"), "1442");
    expect_result(form, "2", "May", "2021", "Sunday");
}

TEST_F(HejricTest, TheCalendarGapIsRefused) {
    frmhej form;
    form.show();
    click(form, "optgth");
    for (int day = 5; day <= 14; ++day) {
        messages.clear();
        convert(form, "1582", "October", QString::number(day));
        expect_refused(form, "Date Error", "The Date After 04 October 1582 CE is 15 October 1582 CE!",
                       "cbod");
    }
    for (const char* name : results)
        EXPECT_FALSE(control(form, name).isVisibleTo(&form)) << name;
}

TEST_F(HejricTest, ADateBeforeTheSixteenthOfJuly622IsRefused) {
    frmhej form;
    form.show();
    click(form, "optgth");
    convert(form, "622", "July", "15");
    expect_refused(form, "Date Error", "Your Date Must Be After 15/July/622 CE!", "txty");
    EXPECT_EQ(control<QLineEdit>(form, "txty").selectedText(), "622");
    convert(form, "621", "December", "31");
    expect_refused(form, "Date Error", "Your Date Must Be After 15/July/622 CE!", "txty");
    convert(form, "words", "December", "31");
    expect_refused(form, "Date Error", "Your Date Must Be After 15/July/622 CE!", "txty");
    EXPECT_EQ(messages.size(), 3U);
}

TEST_F(HejricTest, AHijriYearNotAboveZeroIsRefused) {
    frmhej form;
    form.show();
    for (const char* bad : {"0", "-3", "words", ""}) {
        messages.clear();
        convert(form, bad, "Safar", "2");
        expect_refused(form, "Date Error", "The Year must be more than Zero!", "txty");
    }
}

TEST_F(HejricTest, TheRefusalsAreToldInArabic) {
    set_language(Language::arabic);
    frmhej form;
    form.show();
    convert(form, "0", "محرم", "1");
    expect_refused(form, "خطأ", "السنة يجب أن تكون أكبر من صفر", "txty");
    EXPECT_EQ(messages.back().direction, Qt::RightToLeft);
    click(form, "optgth");
    convert(form, "600", "شباط", "1");
    expect_refused(form, "خطأ", "التاريخ يجب أن يكون بعد 15/تموز/622", "txty");
    convert(form, "1582", "تشرين أول", "10");
    expect_refused(form, "خطأ", "التاريخ الذي يلي 04 تشرين أول 1582 هو 15 تشرين أول 1582", "cbod");
}

TEST_F(HejricTest, ADayPastItsMonthsEndRunsOn) {
    frmhej form;
    form.show();
    convert(form, "1445", "Rabeea' Awwal", "1");
    const QString wanted = caption(form, "lbldt");
    convert(form, "1445", "Safar", "30");
    EXPECT_EQ(caption(form, "lbldt"), wanted);
    click(form, "optgth");
    convert(form, "2023", "June", "31");
    EXPECT_EQ(caption(form, "lblday"), "Saturday"); // 1 July 2023
}

TEST_F(HejricTest, TheYearTakesATextOfAnyLengthAndTellsWhatIsTooLarge) {
    frmhej form;
    form.show();
    for (const char* option : {"opthtg", "optgth"}) {
        click(form, option);
        for (const QString& typed : {QString(40, u'9'), QString(400, u'9'), QStringLiteral("1000000")}) {
            messages.clear();
            enter(form, "txty", typed);
            EXPECT_EQ(year(form), typed);
            click(form, "cmdcon");
            ASSERT_EQ(messages.size(), 1U) << typed.toStdString();
            EXPECT_TRUE(messages[0].exclamation);
            EXPECT_EQ(form.focusWidget(), &control(form, "txty"));
            EXPECT_EQ(control<QLineEdit>(form, "txty").selectedText(), typed);
        }
        EXPECT_EQ(messages[0].title, QStringLiteral("Year Error"));
        EXPECT_TRUE(messages[0].text.contains(QStringLiteral("year 1000000:")));
        EXPECT_TRUE(messages[0].text.endsWith(QStringLiteral("to 999999.")));
    }
}

TEST_F(HejricTest, TheLastYearsAreConverted) {
    frmhej form;
    form.show();
    convert(form, "999999", "Thul Hejjah", "30");
    EXPECT_EQ(caption(form, "lblyt"), QStringLiteral("970844"));
    click(form, "optgth");
    convert(form, "999999", "December", "31");
    EXPECT_FALSE(caption(form, "lblmt").isEmpty());
    EXPECT_TRUE(messages.empty());
}

TEST_F(HejricTest, EnterConvertsAndEscapeCloses) {
    frmhej form;
    form.show();
    enter(form, "txty", "1442");
    QTest::keyClick(&control(form, "txty"), Qt::Key_Return);
    EXPECT_TRUE(control(form, "lbldt").isVisibleTo(&form));
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(HejricTest, CancelClosesThePanel) {
    frmhej form;
    form.show();
    click(form, "cmdcan");
    EXPECT_FALSE(form.isVisible());
}

TEST_F(HejricTest, AMissingPreferencesRecordIsARunTimeFailure) {
    remove("pref.vsk");
    EXPECT_THROW(frmhej form, RunTimeFailure);
}

TEST_F(HejricTest, FocusSelectsTheWholeYear) {
    frmhej form;
    form.show();
    expect_focus_selects_text(form, "txty");
    EXPECT_EQ(control<QLineEdit>(form, "txty").selectedText(), "1435");
}

TEST_F(HejricTest, TabVisitsTheControlsInReadingOrder) {
    frmhej form;
    EXPECT_EQ(tab_order(form).join(u' '), "opthtg optgth txty cbom cbod cmdcon cmdcan");
}

TEST_F(HejricTest, EveryControlIsReachedAndNamed) {
    in_both_languages<frmhej>([](QWidget& form, Language) {
        form.show();
        click(form, "cmdcon");
        expect_usable(form);
        EXPECT_TRUE(control<QPushButton>(form, "cmdcon").isDefault());
    });
}

} // namespace
} // namespace halvane
