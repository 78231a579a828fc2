// SPDX-License-Identifier: MIT
#include "base/failure.h"
#include "calendar/modctim.h"
#include "calendar/moddegree.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace halvane {
namespace {

std::string clock(int precision, double hours) {
    std::string text;
    modctim(precision, hours, text);
    return text;
}

using Format = void (*)(int, char, double, std::string&);

std::string angle(Format format, int level, char unit, double value) {
    std::string text;
    format(level, unit, value, text);
    return text;
}

TEST(ClockText, RoundsToTheMinuteOrTheSecond) {
    EXPECT_EQ(clock(1, 0), "00:00");
    EXPECT_EQ(clock(0, 0), "00:00:00");
    EXPECT_EQ(clock(1, 5.5), "05:30");
    EXPECT_EQ(clock(0, 17 + 8.0 / 60 + 9.4 / 3600), "17:08:09");
    EXPECT_EQ(clock(0, 17 + 8.0 / 60 + 9.6 / 3600), "17:08:10");
    EXPECT_EQ(clock(1, 17 + 8.4 / 60), "17:08");
    EXPECT_EQ(clock(1, 17 + 8.6 / 60), "17:09");
}

TEST(ClockText, RoundsAHalfToTheEvenOne) {
    // Binary fractions of an hour, so that the half is exact.
    EXPECT_EQ(clock(1, 0.125), "00:08") << "7.5 minutes";
    EXPECT_EQ(clock(1, 0.375), "00:22") << "22.5 minutes";
}

TEST(ClockText, CarriesIntoMinutesAndHours) {
    EXPECT_EQ(clock(0, 9 + 59.0 / 60 + 59.7 / 3600), "10:00:00");
    EXPECT_EQ(clock(0, 9 + 29.0 / 60 + 59.7 / 3600), "09:30:00");
    EXPECT_EQ(clock(1, 9 + 59.7 / 60), "10:00");
}

TEST(ClockText, HasATextOfItsOwnForTheLastHalfUnitOfTheDay) {
    EXPECT_EQ(clock(0, 23.99999), "24:00:00");
    EXPECT_EQ(clock(1, 23.9999), "24:00");
    EXPECT_EQ(clock(0, 23 + 59.0 / 60 + 59.4 / 3600), "23:59:59");
    EXPECT_EQ(clock(1, 23 + 59.0 / 60 + 29.4 / 3600), "23:59");
    EXPECT_EQ(clock(1, 23 + 59.0 / 60 + 29.6 / 3600), "24:00");
    EXPECT_EQ(clock(2, 23.9999), "00:00") << "a precision that is neither 0 nor 1";
}

TEST(ClockText, WrapsTheLargestHours) {
    // 1.5e308 hours, times 3600, are beyond every double; fmod is exact.
    const int hour = static_cast<int>(std::fmod(1.5e308, 24));
    const std::string text = (hour < 10 ? "0" : "") + std::to_string(hour) + ":00";
    EXPECT_EQ(clock(1, 1.5e308), text);
    EXPECT_EQ(clock(0, 1.5e308), text + ":00");
}

TEST(ClockText, RoundsSecondsWellBeforeTheDaysEnd) {
    EXPECT_EQ(clock(0, 23.9915), "23:59:29");
}

TEST(ClockText, WrapsPastMidnight) {
    EXPECT_EQ(clock(1, 24), "00:00");
    EXPECT_EQ(clock(1, 24.25), "00:15");
    EXPECT_EQ(clock(0, 25.5), "01:30:00");
    EXPECT_EQ(clock(1, 47.9999), "00:00");
    EXPECT_EQ(clock(1, -0.5), "23:30");
    EXPECT_EQ(clock(0, -24.5), "23:30:00");
}

TEST(ClockText, HasTwoDigitsForHoursOfAnySize) {
    for (double hours : {1e9, 1e15, 1e17, -1e17, 1e22, 1e300})
        for (int precision : {0, 1}) {
            const std::string text = clock(precision, hours);
            EXPECT_EQ(text.size(), precision == 0 ? 8U : 5U) << text;
        }
}

TEST(ClockText, OfNoFiniteTimeIsAFailure) {
    EXPECT_THROW(clock(1, std::nan("")), RunTimeFailure);
    EXPECT_THROW(clock(0, std::numeric_limits<double>::infinity()), RunTimeFailure);
}

TEST(AngleText, HasTheMarksOfItsRoutine) {
    const double value = 5.508; // 5 deg 30' 28.8"
    EXPECT_EQ(angle(moddegree, 0, 'd', value), "+05°:30':29\"");
    EXPECT_EQ(angle(moddegree, 1, 'd', value), "+05°:30'");
    EXPECT_EQ(angle(moddegree, 0, 'h', value), "+05H 30M 29S ");
    EXPECT_EQ(angle(moddegree, 1, 'h', value), "+05H 30M ");
    EXPECT_EQ(angle(moddegree2, 0, 'd', value), "+05:30:29");
    EXPECT_EQ(angle(moddegree2, 1, 'd', value), "+05:30");
    EXPECT_EQ(angle(moddegree2, 2, 'h', value), "+05H 30M 29S ");
    EXPECT_EQ(angle(moddegree2, 1, 'h', value), "+05H 30M ");
    EXPECT_EQ(angle(moddegree3, 0, 'd', value), "05:30:29");
    EXPECT_EQ(angle(moddegree3, 1, 'd', value), "05:30");
    EXPECT_EQ(angle(moddegree3, 0, 'h', value), "05H 30M 29S ");
    EXPECT_EQ(angle(moddegree3, 1, 'h', value), "05H 30M ");
}

TEST(AngleText, KeepsTheSignOfValuesBetweenMinusOneAndZero) {
    EXPECT_EQ(angle(moddegree, 1, 'd', -0.5), "-00°:30'");
    EXPECT_EQ(angle(moddegree2, 0, 'd', -0.5), "-00:30:00");
    EXPECT_EQ(angle(moddegree3, 0, 'd', -0.5), "00:30:00") << "the third has no sign";
    EXPECT_EQ(angle(moddegree, 1, 'd', 0), "+00°:00'");
    EXPECT_EQ(angle(moddegree, 1, 'd', -1e-9), "-00°:00'");
}

TEST(AngleText, CarriesRoundedMinutesAndSeconds) {
    EXPECT_EQ(angle(moddegree, 1, 'd', 59.9999), "+60°:00'");
    EXPECT_EQ(angle(moddegree2, 0, 'd', 59.99999), "+60:00:00");
    EXPECT_EQ(angle(moddegree2, 0, 'd', 10 + 29.0 / 60 + 59.8 / 3600), "+10:30:00");
    EXPECT_EQ(angle(moddegree2, 1, 'd', -179.999), "-180:00");
    EXPECT_EQ(angle(moddegree2, 1, 'd', 359.5), "+359:30");
}

TEST(AngleText, RoundsAHalfToTheEvenOne) {
    EXPECT_EQ(angle(moddegree2, 1, 'd', 0.375), "+00:22") << "22.5 minutes";
    EXPECT_EQ(angle(moddegree2, 1, 'd', 0.125), "+00:08") << "7.5 minutes";
    EXPECT_EQ(angle(moddegree2, 0, 'd', 1.0 / 128), "+00:00:28") << "28.125 seconds";
}

TEST(AngleText, OfNoFiniteAngleIsAFailure) {
    EXPECT_THROW(angle(moddegree, 0, 'd', std::nan("")), RunTimeFailure);
    EXPECT_THROW(angle(moddegree3, 1, 'h', -std::numeric_limits<double>::infinity()), RunTimeFailure);
}

} // namespace
} // namespace halvane
