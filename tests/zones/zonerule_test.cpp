// SPDX-License-Identifier: MIT
#include "zones/zonerule.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace halvane {
namespace {

constexpr std::int64_t hour = 3600;
constexpr std::int64_t quarter = hour / 4;
constexpr std::int64_t day = 86400;
// Days from 1970 January 1: 2023 January 1 (a Sunday of a common year) and 2024 January 1 (a Monday of a leap
// year).
constexpr std::int64_t start_of_2023 = 19358 * day;
constexpr std::int64_t start_of_2024 = 19723 * day;

/// The rule holds from the second `change` on, and not before it.
void expect_change(std::string_view text, std::int64_t change, std::int64_t before, std::int64_t after) {
    const std::optional<ZoneRule> rule = ZoneRule::read(text);
    ASSERT_TRUE(rule) << text;
    EXPECT_EQ(rule->offset_at_second(change - 1), before) << text;
    EXPECT_EQ(rule->offset_at_second(change), after) << text;
}

TEST(ZoneRule, OfAClockWithoutChanges) {
    for (const auto& [text, offset] : {std::pair("UTC0", 0),
                                       {"<+03>-3", 3 * hour},
                                       {"EST5", -5 * hour},
                                       {"<+0545>-5:45", 5 * hour + 3 * quarter},
                                       {"LMT-0:09:21", 9 * 60 + 21},
                                       {"XYZ+12", -12 * hour}}) {
        const std::optional<ZoneRule> rule = ZoneRule::read(text);
        ASSERT_TRUE(rule) << text;
        EXPECT_EQ(rule->offset_at_second(start_of_2023), offset) << text;
        EXPECT_EQ(rule->offset_at_second(start_of_2023 + 180 * day), offset) << text;
    }
}

TEST(ZoneRule, TakesWeekdaysOfMonthsOnTheClockBeforeTheChange) {
    // 2024: last Sunday of March the 31st, of October the 27th; second Sunday of March the 10th.
    expect_change("CET-1CEST,M3.5.0,M10.5.0/3", start_of_2024 + 90 * day + hour, hour, 2 * hour);
    expect_change("CET-1CEST,M3.5.0,M10.5.0/3", start_of_2024 + 300 * day + hour, 2 * hour, hour);
    expect_change("EST5EDT,M3.2.0,M11.1.0", start_of_2024 + 69 * day + 7 * hour, -5 * hour, -4 * hour);
}

TEST(ZoneRule, TakesSummersOverTheNewYear) {
    // 2024: first Sunday of April the 7th, of October the 6th.
    expect_change("AEST-10AEDT,M10.1.0,M4.1.0/3", start_of_2024 + 97 * day - 8 * hour, 11 * hour, 10 * hour);
    expect_change("AEST-10AEDT,M10.1.0,M4.1.0/3", start_of_2024 + 279 * day - 8 * hour, 10 * hour, 11 * hour);
    EXPECT_EQ(ZoneRule::read("AEST-10AEDT,M10.1.0,M4.1.0/3")->offset_at_second(start_of_2024), 11 * hour);
}

TEST(ZoneRule, TakesAnySummerOffset) {
    expect_change("<+1030>-10:30<+11>-11,M10.1.0,M4.1.0", start_of_2024 + 97 * day - 9 * hour, 11 * hour,
                  10 * hour + hour / 2);
    // Ireland's winter is the change: the clock goes back to UT.
    expect_change("IST-1GMT0,M10.5.0,M3.5.0/1", start_of_2024 + 300 * day + hour, hour, 0);
    expect_change("IST-1GMT0,M10.5.0,M3.5.0/1", start_of_2024 + 90 * day + hour, 0, hour);
}

TEST(ZoneRule, TakesHoursBeyondTheDay) {
    // Greenland, 23 h of the day before the last Sunday of March; Palestine, 2 h of the second day after the
    // fourth Thursday of March 2024, the 28th; Egypt, 24 h of the last Thursday of October, the 31st.
    expect_change("<-02>2<-01>,M3.5.0/-1,M10.5.0/0", start_of_2024 + 90 * day + hour, -2 * hour, -hour);
    expect_change("EET-2EEST,M3.4.4/50,M10.4.4/50", start_of_2024 + 89 * day, 2 * hour, 3 * hour);
    expect_change("EET-2EEST,M4.5.5/0,M10.5.4/24", start_of_2024 + 305 * day - 3 * hour, 3 * hour, 2 * hour);
}

TEST(ZoneRule, TakesDaysOfTheYear) {
    // J60 is March 1 of every year, 59 counts from 0 and takes the leap day: March 1 or February 29.
    expect_change("AAA-1BBB,J60,J300", start_of_2023 + 59 * day + hour, hour, 2 * hour);
    expect_change("AAA-1BBB,J60,J300", start_of_2024 + 60 * day + hour, hour, 2 * hour);
    expect_change("AAA-1BBB,J59,J300", start_of_2024 + 58 * day + hour, hour, 2 * hour);
    expect_change("AAA-1BBB,59,300", start_of_2023 + 59 * day + hour, hour, 2 * hour);
    expect_change("AAA-1BBB,59,300", start_of_2024 + 59 * day + hour, hour, 2 * hour);
    expect_change("AAA-1BBB,J60,J300/1:30:15", start_of_2023 + 299 * day - hour / 2 + 15, 2 * hour, hour);
}

TEST(ZoneRule, RefusesWhatIsNotOfTheForm) {
    for (const char* text : {"",
                             "UT0",
                             "UTC",
                             "<+03-3",
                             "<+03>",
                             "UTC--1",
                             "UTC1:60",
                             "UTC168",
                             "UTC0 ",
                             "CET-1CEST",
                             "CET-1CEST,M3.5.0",
                             "CET-1CEST,M3.5.0,",
                             "CET-1CEST,M13.5.0,M10.5.0",
                             "CET-1CEST,M0.5.0,M10.5.0",
                             "CET-1CEST,M3.6.0,M10.5.0",
                             "CET-1CEST,M3.5.7,M10.5.0",
                             "CET-1CEST,M3-5-0,M10.5.0",
                             "CET-1CEST,J0,J300",
                             "CET-1CEST,J366,J300",
                             "CET-1CEST,366,300",
                             "CET-1CEST,M3.5.0/,M10.5.0",
                             "CET-1CEST,M3.5.0,M10.5.0/3x",
                             "CET-1CEST;M3.5.0,M10.5.0",
                             "CET-1CE,M3.5.0,M10.5.0",
                             "CET-1CEST-x,M3.5.0,M10.5.0",
                             "CET-1CEST,M99999999999.5.0,M10.5.0"})
        EXPECT_FALSE(ZoneRule::read(text)) << text;
}

TEST(ZoneRule, HasAnAnswerForEveryInstant) {
    const std::optional<ZoneRule> rule = ZoneRule::read("CET-1CEST,M3.5.0,M10.5.0/3");
    ASSERT_TRUE(rule);
    for (const std::int64_t second :
         {std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()}) {
        const int offset = rule->offset_at_second(second);
        EXPECT_TRUE(offset == hour || offset == 2 * hour) << offset;
    }
}

} // namespace
} // namespace halvane
