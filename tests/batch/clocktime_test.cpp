// SPDX-License-Identifier: MIT
#include "batch/clocktime.h"

#include <gtest/gtest.h>
#include <string>

namespace halvane {
namespace {

void expect_time(const std::string& text, int year, int month, int day, int hour, int minute) {
    const std::optional<MachineTime> time = clock_time(text);
    ASSERT_TRUE(time.has_value()) << text;
    EXPECT_EQ(time->year, year) << text;
    EXPECT_EQ(time->month, month) << text;
    EXPECT_EQ(time->day, day) << text;
    EXPECT_EQ(time->hour, hour) << text;
    EXPECT_EQ(time->minute, minute) << text;
    EXPECT_EQ(time->second, 0) << text;
}

TEST(ClockTime, IsReadFieldByField) {
    expect_time("2026-02-18T12:34", 2026, 2, 18, 12, 34);
    expect_time("0999-08-09T08:09", 999, 8, 9, 8, 9);
}

TEST(ClockTime, TakesTheEndsOfEveryRange) {
    expect_time("0000-01-01T00:00", 0, 1, 1, 0, 0);
    expect_time("9999-12-31T23:59", 9999, 12, 31, 23, 59);
}

TEST(ClockTime, TakesYearsBefore0) {
    expect_time("-0001-12-31T23:59", -1, 12, 31, 23, 59);
    expect_time("-0500-01-01T12:00", -500, 1, 1, 12, 0);
    expect_time("-9999-01-01T00:00", -9999, 1, 1, 0, 0);
    expect_time("-0000-01-01T00:00", 0, 1, 1, 0, 0);
}

TEST(ClockTime, TakesADayThatItsMonthDoesNotHave) {
    expect_time("2026-02-31T12:00", 2026, 2, 31, 12, 0);
}

TEST(ClockTime, RefusesValuesBeyondTheirRange) {
    for (const char* text : {"2026-00-01T00:00", "2026-13-01T00:00", "2026-01-00T00:00", "2026-01-32T00:00",
                             "2026-01-01T24:00", "2026-01-01T00:60", "2026-99-99T99:99"})
        EXPECT_FALSE(clock_time(text)) << text;
}

TEST(ClockTime, RefusesAnotherCountOfDigits) {
    for (const char* text :
         {"26-01-01T00:00", "999-01-01T00:00", "-500-01-01T00:00", "12024-01-01T00:00", "-12024-01-01T00:00",
          "2026-1-01T00:00", "2026-01-1T00:00", "2026-01-01T0:00", "2026-01-01T00:0", "2026-001-01T00:00",
          "2026-01-001T00:00", "2026-01-01T000:00", "2026-01-01T00:000"})
        EXPECT_FALSE(clock_time(text)) << text;
}

TEST(ClockTime, RefusesBlanksAndSigns) {
    for (const char* text : {" 2026-01-01T00:00", "2026-01-01T00:00 ", "2026- 1-01T00:00", "2026-01- 1T00:00",
                             "2026-01-01T 0:00", "2026-01-01T00: 0", "+2026-01-01T00:00",
                             "--2026-01-01T00:00", "2026-+1-01T00:00", "2026--1-01T00:00", "2026-01-01T-0:00",
                             "2026-01-01T00:-0", "\t2026-01-01T00:00", "2026-01-01T00:00\n"})
        EXPECT_FALSE(clock_time(text)) << text;
}

TEST(ClockTime, RefusesOtherMarksAndWords) {
    for (const char* text :
         {"", "-", "yesterday", "2026", "2026-01-01", "2026-01-01T", "2026-01-01T12", "2026-01-01 12:00",
          "2026-01-01t12:00", "2026/01/01T12:00", "2026-01-01T12.00", "2026-01-01T12:00x",
          "2026-01-01T12:00:00", "20x6-01-01T12:00", "0x26-01-01T12:00", "٢٠٢٦-٠١-٠١T١٢:٠٠"})
        EXPECT_FALSE(clock_time(text)) << text;
}

TEST(ClockTime, EndsWithItsText) {
    const std::string with_nul("2026-01-01T12:00\0", 17);
    EXPECT_FALSE(clock_time(with_nul));
    EXPECT_TRUE(clock_time(std::string_view(with_nul).substr(0, 16)));
    EXPECT_FALSE(clock_time(std::string_view(with_nul).substr(0, 15)));
}

TEST(ClockTime, EveryTextCutShortIsRefused) {
    const std::string whole = "-2026-02-18T12:34";
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(clock_time(whole.substr(0, length))) << whole.substr(0, length);
    EXPECT_TRUE(clock_time(whole));
}

} // namespace
} // namespace halvane
