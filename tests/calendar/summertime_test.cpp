// SPDX-License-Identifier: MIT
#include "calendar/modsummer.h"
#include "tests/support/programfolder.h"

#include <gtest/gtest.h>

namespace halvane {
namespace {

Preferences span(double from_month, double from_day, double to_month, double to_day) {
    Preferences preferences;
    preferences.summer_time = "1";
    preferences.summer_from_month = from_month;
    preferences.summer_from_day = from_day;
    preferences.summer_to_month = to_month;
    preferences.summer_to_day = to_day;
    return preferences;
}

int flag_of(double day, double month, double year) {
    int flag = -1;
    modsummer(day, month, year, flag);
    return flag;
}

TEST(SummerTime, HoldsBothEndsOfItsSpan) {
    const TemporaryProgramFolder folder;
    write_pref(span(4, 1, 10, 1));
    EXPECT_EQ(flag_of(31, 3, 2026), 0);
    EXPECT_EQ(flag_of(1, 4, 2026), 1);
    EXPECT_EQ(flag_of(15, 6, 2026), 1);
    EXPECT_EQ(flag_of(1, 10, 2026), 1);
    EXPECT_EQ(flag_of(2, 10, 2026), 0);
    EXPECT_EQ(flag_of(15, 12, 2026), 0);
}

TEST(SummerTime, RunsOverTheNewYearInTheSouth) {
    const TemporaryProgramFolder folder;
    write_pref(span(10, 1, 4, 1));
    EXPECT_EQ(flag_of(15, 12, 2026), 1);
    EXPECT_EQ(flag_of(15, 2, 2026), 1);
    EXPECT_EQ(flag_of(1, 10, 2026), 1);
    EXPECT_EQ(flag_of(1, 4, 2026), 1);
    EXPECT_EQ(flag_of(15, 6, 2026), 0);
    EXPECT_EQ(flag_of(2, 4, 2026), 0);
    EXPECT_EQ(flag_of(30, 9, 2026), 0);
}

TEST(SummerTime, OfOneDayIsThatDay) {
    EXPECT_TRUE(in_summer_time(span(6, 1, 6, 1), 2026, 6, 1));
    EXPECT_FALSE(in_summer_time(span(6, 1, 6, 1), 2026, 6, 2));
}

TEST(SummerTime, IsNeverOnWhenItIsSwitchedOff) {
    const TemporaryProgramFolder folder;
    Preferences preferences = span(1, 1, 12, 31);
    for (const char* off : {"0", "", "2"}) {
        preferences.summer_time = off;
        write_pref(preferences);
        for (int month = 1; month <= 12; ++month)
            EXPECT_EQ(flag_of(15, month, 2026), 0);
    }
}

TEST(SummerTime, DayPastItsMonthsEndIsTheNextMonths) {
    // 31 April is 1 May.
    EXPECT_FALSE(in_summer_time(span(4, 31, 10, 1), 2026, 4, 30));
    EXPECT_TRUE(in_summer_time(span(4, 31, 10, 1), 2026, 5, 1));
    // 30 February is 2 March, and 1 March in a leap year.
    EXPECT_FALSE(in_summer_time(span(2, 30, 10, 1), 2026, 3, 1));
    EXPECT_TRUE(in_summer_time(span(2, 30, 10, 1), 2028, 3, 1));
    EXPECT_TRUE(in_summer_time(span(4, 1, 9, 31), 2026, 10, 1));
}

} // namespace
} // namespace halvane
