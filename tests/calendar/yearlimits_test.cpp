// SPDX-License-Identifier: MIT
#include "calendar/yearlimits.h"

#include "calendar/moddateconv.h"
#include "calendar/modjul.h"

#include <cmath>
#include <gtest/gtest.h>

namespace halvane {
namespace {

TEST(YearLimits, BothEndsOfARangeAreInside) {
    EXPECT_FALSE(refused_year(-4000, theory_years));
    EXPECT_FALSE(refused_year(0, theory_years));
    EXPECT_FALSE(refused_year(9999, theory_years));
    EXPECT_TRUE(refused_year(-4001, theory_years));
    EXPECT_TRUE(refused_year(10000, theory_years));
}

TEST(YearLimits, AYearThatIsNoNumberIsRefusedByEveryRange) {
    EXPECT_FALSE(theory_years.holds(std::nan("")));
    EXPECT_FALSE(converted_civil_years.holds(std::nan("")));
}

TEST(YearLimits, TheWordsTellTheYearAndTheRangeInBothLanguages) {
    const Refusal refused = refused_year(300000, theory_years).value();
    EXPECT_STREQ(refused.title.english, "Year Error");
    EXPECT_STREQ(refused.title.arabic, "خطأ");
    EXPECT_EQ(refused.text.english,
              "There is no answer for the year 300000: please enter a year from -4000 to 9999.");
    for (const char* number : {"300000", "-4000", "9999"})
        EXPECT_NE(refused.text.arabic.find(number), std::string::npos) << number;
}

TEST(YearLimits, APeriodIsRefusedByEitherEndUnlessTheMachinesDateIsUsed) {
    CalculationDate date;
    date.system_date = false;
    date.start = {2026, 1, 1};
    date.end = {2026, 12, 31};
    EXPECT_FALSE(refused_period(date));
    date.end.year = 200000;
    EXPECT_NE(refused_period(date).value().text.english.find("200000"), std::string::npos);
    date.end.year = 2026;
    date.start.year = -5000;
    EXPECT_NE(refused_period(date).value().text.english.find("-5000"), std::string::npos);
    date.system_date = true;
    EXPECT_FALSE(refused_period(date));
}

TEST(YearLimits, EveryDayOfTheTheoriesComesBackFromItsDayNumber) {
    double before = -1e9;
    for (double year = theory_years.first; year <= theory_years.last; year += 1)
        for (double month = 1; month <= 12; month += 1) {
            double jd = 0;
            modjul(year, month, 16, 0, jd);
            double y = 0;
            double m = 0;
            double d = 0;
            modjuc(jd + 0.5, y, m, d);
            ASSERT_EQ(y, year);
            ASSERT_EQ(m, month);
            ASSERT_EQ(std::floor(d), 16);
            ASSERT_GT(jd, before);
            ASSERT_GE(jd, 0) << "before the day count begins";
            before = jd;
        }
}

TEST(YearLimits, TheHijriYearsOfTheTheoriesLieWithinTheCivilOnes) {
    for (const double year : {hijri_theory_years.first, hijri_theory_years.last}) {
        double civil = 0;
        double month = 0;
        double day = 0;
        modjuc(day_number_of_hijri(year, 12, 30), civil, month, day);
        EXPECT_TRUE(theory_years.holds(civil)) << year << " is " << civil;
    }
}

TEST(YearLimits, TheLastConvertedYearsComeBack) {
    for (const double year : {1.0, 1447.0, converted_hijri_years.last}) {
        const HijriDate hijri = hijri_of_day_number(day_number_of_hijri(year, 7, 15));
        EXPECT_EQ(hijri.year, year);
        EXPECT_EQ(hijri.month, 7);
        EXPECT_EQ(hijri.day, 15);
    }
}

} // namespace
} // namespace halvane
