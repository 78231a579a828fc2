// SPDX-License-Identifier: MIT
#include "zones/timezone.h"

#include "base/failure.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <thread>

namespace halvane {
namespace {

constexpr int hour = 3600;
constexpr double jd_2025 = 2460676.5; // 2025 January 1, 0 h

TEST(TimeZone, KeepsAnotherClockInSummer) {
    // EU directive 2000/84/EC: from 1 h UT of the last Sunday of March to that of October; 2025 March 30 and
    // October 26.
    const TimeZone zone("Europe/Berlin");
    const double march_30 = jd_2025 + 88;
    const double october_26 = jd_2025 + 298;
    const double second = 1.0 / 86400;
    EXPECT_EQ(zone.offset_at(march_30 + 1.0 / 24 - second), hour);
    EXPECT_EQ(zone.offset_at(march_30 + 1.0 / 24), 2 * hour);
    EXPECT_EQ(zone.offset_at(october_26 + 1.0 / 24 - second), 2 * hour);
    EXPECT_EQ(zone.offset_at(october_26 + 1.0 / 24), hour);
    EXPECT_EQ(zone.offset_on(march_30 - 1), hour);
    EXPECT_EQ(zone.offset_on(march_30), 2 * hour);
    EXPECT_EQ(zone.offset_on(october_26 - 1), 2 * hour);
    EXPECT_EQ(zone.offset_on(october_26), hour);
}

TEST(TimeZone, KnowsTheRuleOfTheYearsAfterTheLastChangeOfItsFile) {
    // Energy Policy Act of 2005: second Sunday of March to the first one of November. In 9998 the calendar is
    // that of 1998 (8000 years are 20 cycles of 400): March 8 and November 1.
    const TimeZone zone("America/New_York");
    const double jd_9998 = 2450814.5 + 20 * 146097.0; // January 1; 1998 January 1 is JD 2450814.5
    const double march_8 = jd_9998 + 66;
    const double november_1 = jd_9998 + 304;
    EXPECT_EQ(zone.offset_on(march_8 - 1), -5 * hour);
    EXPECT_EQ(zone.offset_on(march_8), -4 * hour);
    EXPECT_EQ(zone.offset_on(november_1 - 1), -4 * hour);
    EXPECT_EQ(zone.offset_on(november_1), -5 * hour);
}

TEST(TimeZone, StartsWithTheLocalMeanTime) {
    // tzdata: "Zone Europe/Paris 0:09:21 - LMT 1891 Mar 16"
    const TimeZone zone("Europe/Paris");
    constexpr int mean_time = 9 * 60 + 21;
    for (const double jd : {-1000.0, 0.0, 2299160.5, 2411000.5})
        EXPECT_EQ(zone.offset_at(jd), mean_time) << jd;
    EXPECT_EQ(zone.offset_at(-1e300), mean_time);
    EXPECT_EQ(zone.offset_at_second(std::numeric_limits<std::int64_t>::min() + 100000), mean_time);
}

TEST(TimeZone, TakesTheClockBeforeTheChangeAtANoonThatIsLeftOut) {
    // tzdata: Samoa went without 2011 December 30, from UTC-10 to UTC+14, both in summer time.
    const TimeZone zone("Pacific/Apia");
    const double december_29 = 2455924.5;
    EXPECT_EQ(zone.offset_on(december_29), -10 * hour);
    EXPECT_EQ(zone.offset_on(december_29 + 1), -10 * hour);
    EXPECT_EQ(zone.offset_on(december_29 + 2), 14 * hour);
}

TEST(TimeZone, HasItsNameAndEqualsItsCopy) {
    const TimeZone zone("Asia/Riyadh");
    std::vector<TimeZone> copies(2, zone);
    copies.front() = TimeZone("Asia/Kuwait");
    EXPECT_EQ(copies.back().name(), "Asia/Riyadh");
    EXPECT_TRUE(copies.back() == zone);
    EXPECT_FALSE(copies.front() == zone);
    EXPECT_EQ(copies.back().offset_at(jd_2025), 3 * hour); // tzdata: 3:00 since 1947
}

TEST(TimeZone, IsReadByManyThreadsAtOnce) {
    std::vector<int> offsets(8);
    std::vector<std::thread> threads;
    threads.reserve(offsets.size());
    for (int& offset : offsets)
        threads.emplace_back([&offset] { offset = TimeZone("Asia/Kathmandu").offset_at(jd_2025); });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(offsets, std::vector<int>(8, 5 * hour + 45 * 60)); // tzdata: 5:45 since 1986
}

TEST(TimeZone, RefusesANameThatIsNoZone) {
    for (const char* name :
         {"Asia/Makkah", "", "asia/riyadh", "Asia", "Asia/", "../zoneinfo/Asia/Riyadh", "localtime",
          "tzdata.zi", "zone.tab", "posix/Asia/Riyadh", "right/Asia/Riyadh", "posixrules"}) {
        EXPECT_FALSE(is_zone_name(name)) << name;
        try {
            const TimeZone zone(name);
            ADD_FAILURE() << name << " is taken as a zone";
        } catch (const RunTimeFailure& failure) {
            EXPECT_EQ(failure.parts().kind, FailureKind::other);
            EXPECT_EQ(failure.parts().words.english,
                      "This system knows no time zone \"" + std::string(name) + "\".");
            EXPECT_EQ(failure.parts().words.arabic,
                      "لا يعرف هذا النظام منطقة زمنية باسم \"" + std::string(name) + "\".");
        }
    }
}

TEST(TimeZone, RefusesADayThatIsNoNumber) {
    const TimeZone zone("UTC");
    EXPECT_THROW(zone.offset_at(std::numeric_limits<double>::quiet_NaN()), RunTimeFailure);
    EXPECT_THROW(zone.offset_on(std::numeric_limits<double>::infinity()), RunTimeFailure);
}

TEST(ZoneNames, AreSortedAndEachIsAZone) {
    const std::vector<std::string> names = zone_names();
    ASSERT_GT(names.size(), 400U);
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
    EXPECT_EQ(std::adjacent_find(names.begin(), names.end()), names.end());
    for (const std::string& name : names)
        EXPECT_TRUE(is_zone_name(name)) << name;
    for (const char* name : {"Asia/Riyadh", "America/Argentina/Ushuaia", "UTC"})
        EXPECT_TRUE(std::binary_search(names.begin(), names.end(), name)) << name;
}

} // namespace
} // namespace halvane
