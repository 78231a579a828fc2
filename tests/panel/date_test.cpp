// SPDX-License-Identifier: MIT
#include "base/failure.h"
#include "desktop/frmdate.h"
#include "ephemeris/series.h"
#include "routines/seriesloader.h"
#include "stored/date.h"
#include "tests/panel/panelchecks.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

namespace halvane {
namespace {

constexpr ControlText captions[] = {
    {"frmdate", "Date", "التاريخ"},
    {"fradate", "Date Settings", "تحديد التاريخ"},
    {"optsystem", "Use the date of your system", "اعتمد تاريخ الجهاز"},
    {"optday", "Do calculations for one day only:", "إجراء الحسابات ليوم واحد فقط"},
    {"optper", "Do calculations for a period of time:", "إجراء الحسابات لفترة من الزمن"},
    {"lblf", "From:", "من"},
    {"lblt", "To:", "إلى"},
    {"lbloyear", "Year:", "السنة"},
    {"lblfyear", "Year:", "السنة"},
    {"lbltyear", "Year:", "السنة"},
    {"lblomonth", "Month:", "الشهر"},
    {"lblfmonth", "Month:", "الشهر"},
    {"lbltmonth", "Month:", "الشهر"},
    {"lbloday", "Day:", "اليوم"},
    {"lblfday", "Day:", "اليوم"},
    {"lbltday", "Day:", "اليوم"},
    {"lblthis", "The date in this menu is used to calculate prayer times, Moon times and Qibleh times. ",
     "التاريخ في هذه القائمة يستخدم لحساب مواقيت الصلاة و مواعيد القمر و مواقيت القبلة"},
    {"cmdok", "&Ok", "&موافق"},
    {"cmdcan", "&Cancel", "&خروج"},
};

constexpr const char* one_day_controls[] = {"lbloyear",  "txtoyear", "lblomonth",
                                            "cboomonth", "lbloday",  "cbooday"};
constexpr const char* period_controls[] = {"lblf",      "lblfyear",  "txtfyear", "lblfmonth", "cbofmonth",
                                           "lblfday",   "cbofday",   "lblt",     "lbltyear",  "txttyear",
                                           "lbltmonth", "cbotmonth", "lbltday",  "cbotday"};

class DateTest : public PanelTest {
protected:
    DateTest() { load_series(); }
    void expect_groups(QWidget& form, bool one_day, bool period) {
        for (const char* name : one_day_controls)
            EXPECT_EQ(control(form, name).isEnabled(), one_day) << name;
        for (const char* name : period_controls)
            EXPECT_EQ(control(form, name).isEnabled(), period) << name;
    }
    void put_record(const char* one_day, const char* period, const char* system) {
        put("date.vsk", std::string(one_day) + ",1,2,3,4,5,6,2023,3,4,2024,5,31,2025,7,8," + period + "," +
                            system + "\r\n");
    }
    void enter_period(QWidget& form, const char* year, const char* month, const char* day,
                      const char* to_year, const char* to_month, const char* to_day) {
        enter(form, "txtfyear", year);
        choose(form, "cbofmonth", month);
        choose(form, "cbofday", day);
        enter(form, "txttyear", to_year);
        choose(form, "cbotmonth", to_month);
        choose(form, "cbotday", to_day);
    }
};

TEST_F(DateTest, EveryCaptionStandsInEnglish) {
    frmdate form;
    expect_captions(form, captions, Language::english);
}

TEST_F(DateTest, EveryCaptionStandsInArabicRightToLeft) {
    set_language(Language::arabic);
    frmdate form;
    expect_captions(form, captions, Language::arabic);
    EXPECT_TRUE(control(form, "fradate").isRightToLeft());
}

TEST_F(DateTest, TheListsHoldTwelveMonthsAndThirtyOneDays) {
    frmdate form;
    for (const auto& [name, count] : {std::pair{"cboomonth", 12},
                                      {"cbofmonth", 12},
                                      {"cbotmonth", 12},
                                      {"cbooday", 31},
                                      {"cbofday", 31},
                                      {"cbotday", 31}}) {
        auto& list = control<QComboBox>(form, name);
        ASSERT_EQ(list.count(), count) << name;
        EXPECT_EQ(list.itemText(0), "1");
        EXPECT_EQ(list.itemText(count - 1), QString::number(count));
    }
}

TEST_F(DateTest, TheBoxesAreFilledWhateverOptionIsStored) {
    const char* yes = "#TRUE#";
    const char* no = "#FALSE#";
    struct Row {
        const char *one_day, *period, *system, *option;
        bool day_open, period_open;
    };
    for (const Row& row :
         {Row{yes, no, no, "optday", true, false}, Row{no, yes, no, "optper", false, true},
          Row{no, no, yes, "optsystem", false, false}, Row{yes, yes, no, "optper", false, true},
          Row{no, no, no, "optsystem", false, false}}) {
        put_record(row.one_day, row.period, row.system);
        frmdate form;
        EXPECT_TRUE(checked(form, row.option)) << row.option;
        expect_groups(form, row.day_open, row.period_open);
        EXPECT_EQ(text(form, "txtfyear"), "2023");
        EXPECT_EQ(chosen(form, "cbofmonth"), "3");
        EXPECT_EQ(chosen(form, "cbofday"), "4");
        EXPECT_EQ(text(form, "txttyear"), "2024");
        EXPECT_EQ(chosen(form, "cbotmonth"), "5");
        EXPECT_EQ(chosen(form, "cbotday"), "31");
        EXPECT_EQ(text(form, "txtoyear"), "2025");
        EXPECT_EQ(chosen(form, "cboomonth"), "7");
        EXPECT_EQ(chosen(form, "cbooday"), "8");
    }
}

TEST_F(DateTest, EachOptionOpensItsOwnBoxes) {
    frmdate form;
    form.show();
    click(form, "optday");
    expect_groups(form, true, false);
    click(form, "optper");
    expect_groups(form, false, true);
    click(form, "optsystem");
    expect_groups(form, false, false);
}

TEST_F(DateTest, OneDayIsStoredAsStartAndEnd) {
    put_record("#FALSE#", "#FALSE#", "#TRUE#");
    frmdate form;
    form.show();
    click(form, "optday");
    enter(form, "txtoyear", "2030");
    choose(form, "cboomonth", "12");
    choose(form, "cbooday", "25");
    click(form, "cmdok");
    EXPECT_EQ(content("date.vsk"), "#TRUE#,2030,12,25,2030,12,25,2023,3,4,2024,5,31,2030,12,25,"
                                   "#FALSE#,#FALSE#\r\n");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(main_panel_reloads, 0);
}

TEST_F(DateTest, APeriodIsStored) {
    frmdate form;
    form.show();
    click(form, "optper");
    enter_period(form, "2024", "6", "1", "2024", "6", "30");
    click(form, "cmdok");
    EXPECT_TRUE(messages.empty());
    const CalculationDate stored = read_date();
    EXPECT_TRUE(stored.period);
    EXPECT_FALSE(stored.one_day);
    EXPECT_FALSE(stored.system_date);
    EXPECT_EQ(stored.start, (DateNumbers{2024, 6, 1}));
    EXPECT_EQ(stored.end, (DateNumbers{2024, 6, 30}));
    EXPECT_EQ(stored.from, stored.start);
    EXPECT_EQ(stored.to, stored.end);
}

TEST_F(DateTest, TheSystemsDateKeepsTheBoxesForTheNextVisit) {
    put_record("#FALSE#", "#TRUE#", "#FALSE#");
    {
        frmdate form;
        form.show();
        click(form, "optsystem");
        click(form, "cmdok");
    }
    EXPECT_EQ(content("date.vsk"),
              "#FALSE#,2023,3,4,2024,5,31,2023,3,4,2024,5,31,2025,7,8,#FALSE#,#TRUE#\r\n");
    frmdate again;
    EXPECT_TRUE(checked(again, "optsystem"));
    EXPECT_EQ(text(again, "txttyear"), "2024");
    EXPECT_EQ(chosen(again, "cbooday"), "8");
}

TEST_F(DateTest, TheSystemsDateIsNeverRefused) {
    put("date.vsk", "#FALSE#,1,1,1,1,1,1,2024,6,2,2024,6,1,2002,1,1,#FALSE#,#TRUE#\r\n");
    frmdate form;
    form.show();
    click(form, "cmdok");
    EXPECT_TRUE(messages.empty());
    EXPECT_FALSE(form.isVisible());
}

TEST_F(DateTest, AnEndBeforeTheStartIsRefused) {
    const std::string before = content("date.vsk");
    frmdate form;
    form.show();
    click(form, "optper");
    enter_period(form, "2024", "6", "2", "2024", "6", "1");
    click(form, "cmdok");
    ASSERT_EQ(messages.size(), 1U);
    expect_warning(messages[0], "Date Error", "The end date must be AFTER the beginning date!");
    EXPECT_EQ(messages[0].buttons, QStringList{"OK"});
    EXPECT_EQ(content("date.vsk"), before);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.focusWidget(), &control(form, "txtfyear"));
    EXPECT_EQ(control<QLineEdit>(form, "txtfyear").selectedText(), "2024");
}

TEST_F(DateTest, TheRefusalIsToldInArabic) {
    set_language(Language::arabic);
    frmdate form;
    form.show();
    click(form, "optper");
    enter_period(form, "2024", "1", "1", "2023", "12", "31");
    click(form, "cmdok");
    ASSERT_EQ(messages.size(), 1U);
    expect_warning(messages[0], "خطأ", "التاريخ الثاني يجب أن يكون بعد التاريخ الأول");
    EXPECT_EQ(messages[0].direction, Qt::RightToLeft);
}

TEST_F(DateTest, AnEndEqualToTheStartPasses) {
    frmdate form;
    form.show();
    click(form, "optper");
    enter_period(form, "2024", "6", "1", "2024", "6", "1");
    click(form, "cmdok");
    EXPECT_TRUE(messages.empty());
    EXPECT_TRUE(read_date().period);
}

TEST_F(DateTest, TheThirtyFirstOfFebruaryCountsAsMarchAndIsKeptAsTyped) {
    frmdate form;
    form.show();
    click(form, "optper");
    enter_period(form, "2023", "2", "31", "2023", "3", "2");
    click(form, "cmdok");
    ASSERT_EQ(messages.size(), 1U);
    choose(form, "cbotday", "3");
    click(form, "cmdok");
    EXPECT_EQ(messages.size(), 1U);
    EXPECT_EQ(read_date().start, (DateNumbers{2023, 2, 31}));
    EXPECT_EQ(read_date().end, (DateNumbers{2023, 3, 3}));
}

TEST_F(DateTest, AnEmptyYearIsStoredAsZero) {
    frmdate form;
    form.show();
    click(form, "optday");
    enter(form, "txtoyear", "");
    answer({true});
    click(form, "cmdok");
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_TRUE(messages[0].text.contains("One day, year: "));
    EXPECT_EQ(read_date().start.year, 0);
    EXPECT_EQ(read_date().one.year, 0);
    EXPECT_TRUE(read_date().one_day);
}

TEST_F(DateTest, AYearIsTheLeadingNumberOfItsBox) {
    frmdate form;
    form.show();
    click(form, "optday");
    enter(form, "txtoyear", "622CE");
    answer({true});
    click(form, "cmdok");
    EXPECT_EQ(read_date().start.year, 622);
}

TEST_F(DateTest, AYearBeyondTheTheoriesIsToldAndNothingIsStored) {
    const std::string before = content("date.vsk");
    frmdate form;
    form.show();
    click(form, "optday");
    enter(form, "txtoyear", "99999999999");
    click(form, "cmdok");
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].title, "Year Error");
    EXPECT_EQ(messages[0].text,
              "There is no answer for the year 99999999999: please enter a year from -4000 to 9999.");
    EXPECT_EQ(form.focusWidget(), &control(form, "txtoyear"));
    EXPECT_EQ(content("date.vsk"), before);
}

TEST_F(DateTest, AnEndBeyondTheTheoriesIsToldAndNothingIsStored) {
    const std::string before = content("date.vsk");
    frmdate form;
    form.show();
    click(form, "optper");
    enter_period(form, "2024", "6", "1", "10000", "6", "1");
    click(form, "cmdok");
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].title, "Year Error");
    EXPECT_TRUE(messages[0].text.contains("10000"));
    EXPECT_EQ(form.focusWidget(), &control(form, "txttyear"));
    EXPECT_EQ(content("date.vsk"), before);
}

TEST_F(DateTest, CancelStoresNothing) {
    const std::string before = content("date.vsk");
    frmdate form;
    form.show();
    click(form, "optday");
    click(form, "cmdcan");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(content("date.vsk"), before);
}

TEST_F(DateTest, AMissingOrDamagedRecordIsARunTimeFailure) {
    put("date.vsk", "#FALSE#,2024,x\r\n");
    EXPECT_THROW(frmdate form, RunTimeFailure);
    remove("date.vsk");
    EXPECT_THROW(frmdate form, RunTimeFailure);
}

TEST_F(DateTest, FocusSelectsTheWholeYear) {
    frmdate form;
    form.show();
    for (const char* name : {"txtoyear", "txtfyear", "txttyear"}) {
        auto& box = control<QLineEdit>(form, name);
        box.setText("1999");
        box.deselect();
        focus(form, name);
        EXPECT_EQ(box.selectedText(), "1999") << name;
    }
}

TEST_F(DateTest, TabVisitsTheControlsInReadingOrder) {
    frmdate form;
    EXPECT_EQ(tab_order(form).join(u' '), "optsystem optday txtoyear cboomonth cbooday optper txtfyear "
                                          "cbofmonth cbofday txttyear cbotmonth cbotday cmdok cmdcan");
}

TEST_F(DateTest, EveryControlIsReachedAndNamed) {
    in_both_languages<frmdate>([](QWidget& form, Language) {
        expect_usable(form);
        EXPECT_TRUE(control<QPushButton>(form, "cmdok").isDefault());
    });
}

} // namespace
} // namespace halvane
