// SPDX-License-Identifier: MIT
#include "ephemeris/modgeneral.h"

#include "base/failure.h"
#include "routines/waitseconds.h"

#include <chrono>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace halvane {
namespace {

/// The engine's pi has fifteen digits.
constexpr double digits_of_pi = 1e-14;

TEST(Turns, WholeTurnsFoldToZero) {
    EXPECT_EQ(rev360(360), 0);
    EXPECT_EQ(rev360(-360), 0);
    EXPECT_EQ(rev360(720), 0);
    EXPECT_EQ(rev360(-720), 0);
    EXPECT_EQ(rev360(0), 0);
}

TEST(Turns, AnglesFoldIntoOneTurn) {
    EXPECT_NEAR(rev360(-10), 350, 1e-12);
    EXPECT_NEAR(rev360(370), 10, 1e-12);
    EXPECT_NEAR(rev360(-730), 350, 1e-12);
    EXPECT_EQ(rev360(123.25), 123.25);
    std::mt19937 random(3);
    std::uniform_real_distribution<double> angle(-1e6, 1e6);
    for (int i = 0; i < 1000; ++i) {
        const double x = angle(random);
        EXPECT_GE(rev360(x), 0);
        EXPECT_LT(rev360(x), 360);
        EXPECT_NEAR(std::remainder(rev360(x) - x, 360), 0, 1e-8);
        EXPECT_NEAR(turn_into_360(x), rev360(x), 1e-8);
    }
}

TEST(Turns, TheTestsOfTheFundamentalArgumentsLeaveAWholeTurn) {
    EXPECT_EQ(reduce360(360), 360);
    EXPECT_EQ(reduce360(-360), 360);
    EXPECT_NEAR(reduce360(361), 1, 1e-12);
}

TEST(Turns, HalfTurnsFoldOnceOnly) {
    EXPECT_EQ(rev180(540), 180);
    EXPECT_EQ(rev180(900), 540);
    EXPECT_EQ(rev180(-190), 170);
    EXPECT_EQ(rev180(180), 180);
    EXPECT_EQ(rev180(-180), -180);
    EXPECT_EQ(rev180(190), -170);
    EXPECT_DOUBLE_EQ(revpi(3 * pi), pi);
    EXPECT_DOUBLE_EQ(revpi(-1.5 * pi), 0.5 * pi);
    EXPECT_EQ(revpi(1), 1);
    EXPECT_DOUBLE_EQ(revpi(7 * pi), 5 * pi);
}

TEST(Turns, FarAnglesAreReducedAtOnce) {
    EXPECT_GE(turn_into_360(1e18), 0);
    EXPECT_LT(turn_into_360(1e18), 360);
    EXPECT_GE(turn_into_360(-1e300), 0);
    EXPECT_NEAR(turn_into_360(36000.0 * 360 + 5), 5, 1e-6);
    EXPECT_THROW(turn_into_360(std::nan("")), RunTimeFailure);
    EXPECT_THROW(turn_into_360(std::numeric_limits<double>::infinity()), RunTimeFailure);
}

TEST(ArcTangent, TakesXFirstAndRunsFromMinusAQuarterTurn) {
    EXPECT_EQ(atan2(0, 0), 0);
    EXPECT_NEAR(atan2(0, 1), pi / 2, digits_of_pi);
    EXPECT_NEAR(atan2(0, -1), -pi / 2, digits_of_pi);
    EXPECT_NEAR(atan2(1, 1), pi / 4, digits_of_pi);
    EXPECT_NEAR(atan2(-1, 1), 3 * pi / 4, digits_of_pi);
    EXPECT_NEAR(atan2(-1, -1), 5 * pi / 4, digits_of_pi) << "not the usual -3 pi/4";
    EXPECT_NEAR(atan2(1, -1), -pi / 4, digits_of_pi);
    for (double angle = -1.5; angle < 4.7; angle += 0.1)
        EXPECT_NEAR(atan2(2 * std::cos(angle), 2 * std::sin(angle)), angle, 1e-13);
}

TEST(ArcSine, GivesTheLimitAtOneAndNothingBeyond) {
    EXPECT_NEAR(asin(1), pi / 2, digits_of_pi);
    EXPECT_NEAR(asin(-1), -pi / 2, digits_of_pi);
    EXPECT_EQ(asin(0), 0);
    EXPECT_NEAR(acos(1), 0, 1e-15);
    EXPECT_NEAR(acos(-1), pi, digits_of_pi);
    EXPECT_NEAR(acos(0), pi / 2, digits_of_pi);
    for (double x : {1.0000001, -1.0000001, 2.0}) {
        EXPECT_FALSE(std::isfinite(asin(x)));
        EXPECT_FALSE(std::isfinite(acos(x)));
    }
    for (double x = -0.99; x < 1; x += 0.03) {
        EXPECT_NEAR(asin(x), std::asin(x), 1e-14);
        EXPECT_NEAR(acos(x), std::acos(x), 1e-14);
    }
}

TEST(Rounding, TakesAHalfToTheEvenNumber) {
    EXPECT_EQ(round_half_even(0.5), 0);
    EXPECT_EQ(round_half_even(1.5), 2);
    EXPECT_EQ(round_half_even(-2.5), -2);
}

int passes = 0;

TEST(Waiting, LetsPendingEventsRunUntilTheTimeIsOver) {
    passes = 0;
    set_pending_events_handler([] { ++passes; });
    const auto start = std::chrono::steady_clock::now();
    waitseconds(0.05);
    set_pending_events_handler(nullptr);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    EXPECT_GE(taken.count(), 0.05);
    EXPECT_LT(taken.count(), 30);
    EXPECT_GT(passes, 0);
    waitseconds(0);
}

} // namespace
} // namespace halvane
