#include "app/nextprayer.h"

#include <gtest/gtest.h>
#include <optional>

namespace halvane {
namespace {

const TodayTexts summer{"03:51", "05:31", "12:38", "16:19", "19:45", "21:26"};

int at(int hour, int minute, int second = 0) {
    return (hour * 60 + minute) * 60 + second;
}

TEST(NextPrayer, IsTheFirstOneAfterTheClock) {
    EXPECT_EQ(next_prayer(summer, at(15, 7)), (NextPrayer{3, 72, false}));
    EXPECT_EQ(next_prayer(summer, at(0, 0)), (NextPrayer{0, 231, false}));
}

TEST(NextPrayer, IsNeverTheSunrise) {
    EXPECT_EQ(next_prayer(summer, at(4, 0)), (NextPrayer{2, 518, false}));
}

TEST(NextPrayer, AtItsOwnMinuteThePrayerIsNoLongerTheNext) {
    EXPECT_EQ(next_prayer(summer, at(16, 19)), (NextPrayer{4, 206, false}));
}

TEST(NextPrayer, ABegunMinuteCountsWhole) {
    EXPECT_EQ(next_prayer(summer, at(16, 18, 30)), (NextPrayer{3, 1, false}));
}

TEST(NextPrayer, AfterTheLastOneIsTheFirstOfTomorrow) {
    EXPECT_EQ(next_prayer(summer, at(22, 0)), (NextPrayer{0, 0, true}));
}

TEST(NextPrayer, SecondsAreReadToo) {
    const TodayTexts seconds{"03:51:20", "05:31:00", "12:38:40", "16:19:10", "19:45:00", "21:26:00"};
    EXPECT_EQ(next_prayer(seconds, at(16, 19, 5)), (NextPrayer{3, 1, false}));
}

TEST(NextPrayer, WordsArePassedOver) {
    const TodayTexts polar{"Bright", "Up", "12:38", "----", "Up", "Bright"};
    EXPECT_EQ(next_prayer(polar, at(10, 0)), (NextPrayer{2, 158, false}));
    EXPECT_EQ(next_prayer(polar, at(13, 0)), (NextPrayer{2, 0, true}));
}

TEST(NextPrayer, WithoutAnyTimeThereIsNone) {
    EXPECT_EQ(next_prayer({"Dark", "Down", "Down", "Down", "Down", "Dark"}, at(10, 0)), std::nullopt);
    EXPECT_EQ(next_prayer({}, at(10, 0)), std::nullopt);
}

TEST(NextPrayer, AnIshaAfterMidnightIsTheFirstOfItsClockDay) {
    const TodayTexts late{"02:30", "04:00", "13:00", "17:30", "22:00", "00:20"};
    EXPECT_EQ(next_prayer(late, at(0, 5)), (NextPrayer{5, 15, false}));
    EXPECT_EQ(next_prayer(late, at(23, 0)), (NextPrayer{5, 0, true}));
}

} // namespace
} // namespace halvane
