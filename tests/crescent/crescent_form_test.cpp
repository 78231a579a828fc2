// SPDX-License-Identifier: MIT
#include "calendar/civildate.h"
#include "calendar/moddeltat.h"
#include "calendar/modjul.h"
#include "crescent/crescentrules.h"
#include "ephemeris/series.h"
#include "routines/seriesloader.h"
#include "routines/tdtinput.h"
#include "stored/pref.h"
#include "stored/textfile.h"
#include "tests/support/places.h"
#include "tests/support/programfolder.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <string>

namespace halvane {
namespace {

using Texts = std::array<std::string, 3>;

/// A program folder of Amman's with the delivered series.
class CrescentRulesTest : public ::testing::Test {
protected:
    CrescentRulesTest() {
        write_pref(Preferences{});
        write_loc(place_at({35, 56}, {31, 57}, 2, "Amman"));
        load_series();
    }

    /// Choices for 29 March 2025, the day of a conjunction at 10:58 UT (Astronomical Almanac).
    static CrescentSettings march_2025() {
        CrescentSettings settings;
        settings.day = "29";
        settings.month = "3";
        settings.year = "2025";
        return settings;
    }

    std::string report() const { return read_text_file((folder_ / "visib.out").string()); }

private:
    TemporaryProgramFolder folder_;
};

TEST(CrescentRulesTexts, DaysAreNamedByTheKindOfCrescent) {
    EXPECT_STREQ(day_captions(true)[0].in(Language::english), "The Day of Conjunction");
    EXPECT_STREQ(day_captions(true)[1].in(Language::english), "One Day After Conjunction");
    EXPECT_STREQ(day_captions(true)[2].in(Language::english), "Two Days After Conjunction");
    EXPECT_STREQ(day_captions(false)[0].in(Language::english), "The Day of Conjunction");
    EXPECT_STREQ(day_captions(false)[1].in(Language::english), "One Day Before Conjunction");
    EXPECT_STREQ(day_captions(false)[2].in(Language::english), "Two Days Before Conjunction");
    EXPECT_STREQ(day_captions(true)[0].in(Language::arabic), "يوم الاقتران");
    EXPECT_STREQ(day_captions(true)[1].in(Language::arabic), "يوم واحد بعد الاقتران");
    EXPECT_STREQ(day_captions(true)[2].in(Language::arabic), "يومان بعد الاقتران");
    EXPECT_STREQ(day_captions(false)[1].in(Language::arabic), "يوم واحد قبل الاقتران");
    EXPECT_STREQ(day_captions(false)[2].in(Language::arabic), "يومان قبل الاقتران");
}

TEST(CrescentRulesTexts, EventsAreNamedByTheKindOfCrescent) {
    EXPECT_STREQ(event_captions(true)[0].in(Language::english), "Sunset");
    EXPECT_STREQ(event_captions(true)[1].in(Language::english), "Moonset");
    EXPECT_STREQ(event_captions(false)[0].in(Language::english), "Sunrise");
    EXPECT_STREQ(event_captions(false)[1].in(Language::english), "Moonrise");
    EXPECT_STREQ(event_captions(true)[0].in(Language::arabic), "غروب الشمس");
    EXPECT_STREQ(event_captions(true)[1].in(Language::arabic), "غروب القمر");
    EXPECT_STREQ(event_captions(false)[0].in(Language::arabic), "شروق الشمس");
    EXPECT_STREQ(event_captions(false)[1].in(Language::arabic), "شروق القمر");
}

TEST(CrescentRulesTexts, ADateIsPaddedAndHasItsEra) {
    EXPECT_EQ(day_caption({2025, 3, 9}), "09/03/2025  CE");
    EXPECT_EQ(day_caption({622, 12, 19}), "19/12/622  CE");
}

TEST_F(CrescentRulesTest, NothingIsPreparedAtFirst) {
    EXPECT_FALSE(CrescentRules().is_prepared());
}

TEST_F(CrescentRulesTest, ANewCrescentOffersTheDaysAfterTheConjunction) {
    CrescentRules form;
    form.prepare(loaded_theory(), read_crescent_records(march_2025()));
    ASSERT_TRUE(form.is_prepared());
    EXPECT_EQ(form.dates(true), (Texts{"29/03/2025  CE", "30/03/2025  CE", "31/03/2025  CE"}));
    EXPECT_EQ(tdtinput, 0);
}

TEST_F(CrescentRulesTest, AnOldCrescentOffersTheDaysBeforeTheConjunction) {
    CrescentRules form;
    form.prepare(loaded_theory(), read_crescent_records(march_2025()));
    EXPECT_EQ(form.dates(false), (Texts{"29/03/2025  CE", "28/03/2025  CE", "27/03/2025  CE"}));
}

// The conjunctions around Ramadan 1446: 28 February 2025 0:45 UT and 29 March 2025 10:58 UT.
TEST_F(CrescentRulesTest, AHijriMonthStartsAtOneConjunctionAndEndsAtTheNext) {
    CrescentSettings ramadan = march_2025();
    ramadan.gregorian = false;
    ramadan.hijri = true;
    ramadan.hijri_month = 8;
    ramadan.hijri_year = "1446";
    CrescentRules form;
    form.prepare(loaded_theory(), read_crescent_records(ramadan));
    EXPECT_EQ(form.dates(true)[0], "28/02/2025  CE");
    ramadan.new_crescent = false;
    form.prepare(loaded_theory(), read_crescent_records(ramadan));
    EXPECT_EQ(form.dates(false)[0], "29/03/2025  CE");
}

TEST_F(CrescentRulesTest, TheDateIsThatOfTheLocalClock) {
    Location kiritimati = read_loc();
    kiritimati.zone = 14;
    write_loc(kiritimati);
    CrescentRules form;
    form.prepare(loaded_theory(), read_crescent_records(march_2025()));
    EXPECT_EQ(form.dates(true)[0], "30/03/2025  CE");
}

TEST_F(CrescentRulesTest, AYearWithoutDigitsIsTheYearZero) {
    CrescentSettings settings = march_2025();
    settings.year = "next";
    CrescentRules form;
    form.prepare(loaded_theory(), read_crescent_records(settings));
    EXPECT_TRUE(form.is_prepared());
    EXPECT_EQ(form.dates(true)[0].size(), std::string("dd/mm/0  CE").size());
    EXPECT_TRUE(form.dates(true)[0].ends_with("/0  CE")) << form.dates(true)[0];
}

TEST_F(CrescentRulesTest, AResetDropsTheConjunction) {
    CrescentRules form;
    form.prepare(loaded_theory(), read_crescent_records(march_2025()));
    form.reset();
    EXPECT_FALSE(form.is_prepared());
}

TEST_F(CrescentRulesTest, ACalculationStoresTheChoicesAndWritesTheReport) {
    CrescentSettings settings = march_2025();
    CrescentRules form;
    form.prepare(loaded_theory(), read_crescent_records(settings));
    settings.two_days = true;
    settings.one_day = false;
    DayEvents events;
    NoProgress progress;
    write_report(*form.calculate(loaded_theory(), read_crescent_records(settings), events), progress);
    EXPECT_EQ(read_visib(), settings);
    EXPECT_NE(report().find("- Crescent Visibility on: Monday  31/03/2025 CE\r\n"), std::string::npos);
    EXPECT_EQ(tdtinput, 0);
}

/// The New Moons of 2025 (Astronomical Almanac), of which none changes its date on a clock two hours ahead.
constexpr std::array<DateNumbers, 12> new_moons_of_2025{{{2025, 1, 29},
                                                         {2025, 2, 28},
                                                         {2025, 3, 29},
                                                         {2025, 4, 27},
                                                         {2025, 5, 27},
                                                         {2025, 6, 25},
                                                         {2025, 7, 24},
                                                         {2025, 8, 23},
                                                         {2025, 9, 21},
                                                         {2025, 10, 21},
                                                         {2025, 11, 20},
                                                         {2025, 12, 20}}};

double midnight(const DateNumbers& date) {
    double jd = 0;
    modjul(date.year, date.month, date.day, 0, jd);
    return jd;
}

/// The first New Moon of the table whose last day of observation is not before `today`.
DateNumbers coming_by_the_table(double today, bool new_crescent) {
    const double days_after = new_crescent ? 2 : 0;
    for (const DateNumbers& date : new_moons_of_2025)
        if (midnight(date) + days_after >= today)
            return date;
    return {};
}

TEST_F(CrescentRulesTest, TheComingCrescentIsTheFirstOfWhichADayIsLeft) {
    CrescentRecords run = read_crescent_records(march_2025());
    run.settings.geocentric = true;
    for (const bool is_new : {true, false}) {
        run.settings.new_crescent = is_new;
        for (double day = midnight({2025, 1, 3}); day <= midnight({2025, 12, 20}); ++day) {
            const CrescentSettings coming = coming_crescent(loaded_theory(), run, civil_date(day));
            const DateNumbers expected = coming_by_the_table(day, is_new);
            const DateNumbers filled = approximate_date(coming);
            ASSERT_EQ(midnight(filled), midnight(expected)) << day - midnight({2025, 1, 1}) << is_new;
        }
    }
}

TEST_F(CrescentRulesTest, EitherCalendarOfTheComingCrescentFindsItsConjunction) {
    CrescentRecords run = read_crescent_records(march_2025());
    CrescentRules rules;
    for (const bool is_new : {true, false})
        for (double day = midnight({2025, 1, 1}); day < midnight({2035, 1, 1}); day += 17) {
            run.settings = march_2025();
            run.settings.new_crescent = is_new;
            run.settings = coming_crescent(loaded_theory(), run, civil_date(day));
            const double by_gregorian = rules.prepare(loaded_theory(), run).local;
            run.settings.gregorian = false;
            EXPECT_EQ(rules.prepare(loaded_theory(), run).local, by_gregorian) << day;
            EXPECT_GE(std::floor(by_gregorian + 0.5) + (is_new ? 2 : 0), day + 0.5);
        }
}

TEST_F(CrescentRulesTest, TheComingCrescentKeepsTheOtherChoices) {
    CrescentSettings settings = march_2025();
    settings.gregorian = false;
    settings.hijri = true;
    settings.two_days = true;
    settings.user_hour = "7";
    CrescentSettings coming = coming_crescent(loaded_theory(), read_crescent_records(settings), {2025, 4, 2});
    EXPECT_EQ(coming.day + '/' + coming.month + '/' + coming.year, "27/4/2025");
    EXPECT_EQ(coming.hijri_month, 10); // Thul Kea'deh
    EXPECT_EQ(coming.hijri_year, "1446");
    coming.day = settings.day;
    coming.month = settings.month;
    coming.year = settings.year;
    coming.hijri_month = settings.hijri_month;
    coming.hijri_year = settings.hijri_year;
    EXPECT_EQ(coming, settings);
}

TEST_F(CrescentRulesTest, WordsTellTheConjunctionAndItsMonth) {
    CrescentSettings settings = march_2025();
    settings.geocentric = true;
    CrescentRules rules;
    const auto words = [&] {
        const CrescentRecords run = read_crescent_records(settings);
        return conjunction_words(rules.prepare(loaded_theory(), run), run);
    };
    EXPECT_EQ(words().english, "Geocentric conjunction: Saturday 29 March 2025, 12:58\n"
                               "In UT: 29 March 2025, 10:58. It begins Shawwal 1446 AH.");
    EXPECT_EQ(words().arabic, "الاقتران المركزي: السبت 29 آذار 2025، 12:58\n"
                              "بالتوقيت العالمي: 29 آذار 2025، 10:58. يبدأ به شوال 1446 هـ.");
    settings.new_crescent = false;
    EXPECT_NE(words().english.find("It ends Ramadan 1446 AH."), std::string::npos);
    EXPECT_NE(words().arabic.find("ينتهي به رمضان 1446 هـ."), std::string::npos);
    settings.geocentric = false;
    EXPECT_EQ(words().english.find("Topocentric conjunction: Saturday 29 March 2025, "), 0U);
}

// New Moon on 2025 February 28, 0:45 UT (Astronomical Almanac), in the evening before at New York.
TEST_F(CrescentRulesTest, WordsTellTheDateOfUniversalTimeWhereItIsAnother) {
    write_loc(place_at({-74, 0}, {40, 43}, -5, "New York"));
    CrescentSettings settings = march_2025();
    settings.day = "27";
    settings.month = "2";
    settings.geocentric = true;
    const CrescentRecords run = read_crescent_records(settings);
    CrescentRules rules;
    EXPECT_EQ(conjunction_words(rules.prepare(loaded_theory(), run), run).english,
              "Geocentric conjunction: Thursday 27 February 2025, 19:45\n"
              "In UT: 28 February 2025, 00:45. It begins Ramadan 1446 AH.");
}

} // namespace
} // namespace halvane
