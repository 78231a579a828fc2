// SPDX-License-Identifier: MIT
#include "calendar/moddeltat.h"
#include "crescent/crescentrules.h"
#include "ephemeris/series.h"
#include "routines/seriesloader.h"
#include "routines/tdtinput.h"
#include "stored/pref.h"
#include "stored/textfile.h"
#include "tests/support/places.h"
#include "tests/support/programfolder.h"

#include <array>
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

} // namespace
} // namespace halvane
