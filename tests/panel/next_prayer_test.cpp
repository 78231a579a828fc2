// SPDX-License-Identifier: MIT
#include "prayer/nextprayer.h"

#include "calendar/locationclock.h"
#include "calendar/platformdate.h"
#include "tests/support/clocks.h"

#include <array>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

namespace halvane {
namespace {

const double today = platform_day_count(2024, 6, 21);

double at(int hour, int minute, int second = 0, double day = today) {
    return day * seconds_per_day + hour * 3600.0 + minute * 60.0 + second;
}

Location zone_of(double hours) {
    Location location;
    location.zone = hours;
    return location;
}

PrayerTimes six(const std::array<std::string, 6>& texts) {
    PrayerTimes times;
    for (std::size_t i = 0; i < texts.size(); ++i)
        times.*six_times[i] = time_at(texts[i]);
    return times;
}

/// The moments of `times` on two days in a row.
std::vector<PrayerMoment> two_days(const PrayerTimes& times, double zone = 0,
                                   const Preferences& preferences = {}) {
    std::vector<PrayerMoment> moments = prayer_moments(times, today, preferences, zone_of(zone));
    for (const PrayerMoment& moment : prayer_moments(times, today + 1, preferences, zone_of(zone)))
        moments.push_back(moment);
    sort_by_time(moments);
    return moments;
}

const PrayerTimes summer = six({"03:51", "05:31", "12:38", "16:19", "19:45", "21:26"});

TEST(NextPrayer, IsTheFirstOneAfterTheInstant) {
    EXPECT_EQ(next_prayer(two_days(summer), at(15, 7)),
              (NextPrayer{3, 72, today, clock_at("16:19"), at(16, 19)}));
    EXPECT_EQ(next_prayer(two_days(summer), at(0, 0)),
              (NextPrayer{0, 231, today, clock_at("03:51"), at(3, 51)}));
}

TEST(NextPrayer, IsNeverTheSunrise) {
    EXPECT_EQ(next_prayer(two_days(summer), at(4, 0)),
              (NextPrayer{2, 518, today, clock_at("12:38"), at(12, 38)}));
}

TEST(NextPrayer, AtItsOwnMinuteThePrayerIsNoLongerTheNext) {
    EXPECT_EQ(next_prayer(two_days(summer), at(16, 19)),
              (NextPrayer{4, 206, today, clock_at("19:45"), at(19, 45)}));
}

TEST(NextPrayer, ABegunMinuteCountsWhole) {
    EXPECT_EQ(next_prayer(two_days(summer), at(16, 18, 30)),
              (NextPrayer{3, 1, today, clock_at("16:19"), at(16, 19)}));
    EXPECT_EQ(next_prayer(two_days(summer), at(16, 18, 59)),
              (NextPrayer{3, 1, today, clock_at("16:19"), at(16, 19)}));
    EXPECT_EQ(next_prayer(two_days(summer), at(16, 18, 0)),
              (NextPrayer{3, 1, today, clock_at("16:19"), at(16, 19)}));
    EXPECT_EQ(next_prayer(two_days(summer), at(16, 17, 59)),
              (NextPrayer{3, 2, today, clock_at("16:19"), at(16, 19)}));
}

TEST(NextPrayer, AfterTheLastOneIsTheFirstOfTomorrow) {
    EXPECT_EQ(next_prayer(two_days(summer), at(22, 0)),
              (NextPrayer{0, 351, today + 1, clock_at("03:51"), at(3, 51, 0, today + 1)}));
}

TEST(NextPrayer, SecondsAreReadToo) {
    const PrayerTimes seconds = six({"03:51:20", "05:31:00", "12:38:40", "16:19:10", "19:45:00", "21:26:00"});
    Preferences preferences;
    preferences.clock_precision = "0";
    EXPECT_EQ(next_prayer(two_days(seconds, 0, preferences), at(16, 19, 5)),
              (NextPrayer{3, 1, today, clock_at("16:19:10"), at(16, 19, 10)}));
}

TEST(NextPrayer, WordsArePassedOver) {
    const PrayerTimes polar = six({"Bright", "Up", "12:38", "----", "Up", "Bright"});
    EXPECT_EQ(next_prayer(two_days(polar), at(10, 0)),
              (NextPrayer{2, 158, today, clock_at("12:38"), at(12, 38)}));
    EXPECT_EQ(next_prayer(two_days(polar), at(13, 0)),
              (NextPrayer{2, 1418, today + 1, clock_at("12:38"), at(12, 38, 0, today + 1)}));
}

TEST(NextPrayer, WithoutAnyTimeThereIsNone) {
    EXPECT_EQ(next_prayer(two_days(six({"Dark", "Down", "Down", "Down", "Down", "Dark"})), at(10, 0)),
              std::nullopt);
    EXPECT_EQ(next_prayer({}, at(10, 0)), std::nullopt);
}

TEST(NextPrayer, AnIshaAfterMidnightIsTheFirstOfItsClockDay) {
    const PrayerTimes late = six({"02:30", "04:00", "13:00", "17:30", "22:00", "00:20"});
    EXPECT_EQ(next_prayer(two_days(late), at(0, 5)),
              (NextPrayer{5, 15, today, clock_at("00:20"), at(0, 20)}));
    EXPECT_EQ(next_prayer(two_days(late), at(23, 0)),
              (NextPrayer{5, 80, today + 1, clock_at("00:20"), at(0, 20, 0, today + 1)}));
}

TEST(NextPrayer, CountsFromTheInstantWhateverTheLocationsZone) {
    // 13:36 UT is 16:36 on a clock three hours ahead, and 10:06 on one three and a half behind.
    EXPECT_EQ(next_prayer(two_days(summer, 3), at(13, 36)),
              (NextPrayer{4, 189, today, clock_at("19:45"), at(16, 45)}));
    EXPECT_EQ(next_prayer(two_days(summer, -3.5), at(13, 36)),
              (NextPrayer{2, 152, today, clock_at("12:38"), at(16, 8)}));
}

TEST(PrayerMoments, FollowTheSummerHourOfTheirDate) {
    Preferences preferences;
    preferences.summer_time = "1";
    preferences.summer_from_month = 6;
    preferences.summer_from_day = 22;
    const PrayerTimes noon = six({"----", "----", "12:00", "----", "----", "----"});
    EXPECT_EQ(prayer_moments(noon, today, preferences, zone_of(2)).at(0).seconds, at(10, 0));
    EXPECT_EQ(prayer_moments(noon, today + 1, preferences, zone_of(2)).at(0).seconds, at(9, 0, 0, today + 1));
}

} // namespace
} // namespace halvane
