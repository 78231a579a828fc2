// SPDX-License-Identifier: MIT
#include "watch/skyoffset.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

namespace halvane {
namespace {

constexpr double degree = std::numbers::pi / 180;

TEST(SkyOffset, SeparationIsThatOfArcturusAndSpica) {
    // Meeus, Astronomical Algorithms, 2nd edition, example 17.a.
    EXPECT_NEAR(sky_offset(213.9154, 19.1825, 201.2983, -11.1614).separation, 32.7930, 0.00005);
}

TEST(SkyOffset, AngleIsThatOfTheBrightLimb) {
    // Meeus, Astronomical Algorithms, 2nd edition, example 48.a: 1992 April 12, 0 h TD.
    EXPECT_NEAR(sky_offset(134.6885, 13.7684, 20.6579, 8.6964).angle, 285.0, 0.05);
}

TEST(SkyOffset, GoesOnThroughTheFullTurn) {
    EXPECT_NEAR(sky_offset(359, 0, 1, 0).separation, 2, 1e-9);
    EXPECT_NEAR(sky_offset(359, 0, 1, 0).angle, 90, 1e-9);
    EXPECT_NEAR(sky_offset(1, 0, 359, 0).angle, 270, 1e-9);
    EXPECT_NEAR(sky_offset(10, 5, 10, 6).angle, 0, 1e-9);
    EXPECT_NEAR(sky_offset(10, 6, 10, 5).angle, 180, 1e-9);
}

/// Refraction by the airless altitude: Saemundsson, Sky and Telescope 72, 70 (1986), after Meeus,
/// Astronomical Algorithms, chapter "Atmospheric Refraction" [deg]
double saemundsson(double airless) {
    return 1.02 / std::tan((airless + 10.3 / (airless + 5.11)) * degree) / 60;
}

TEST(ApparentAltitude, AgreesWithTheFormulaOfTheAirlessAltitude) {
    constexpr double tenth_of_minute = 0.1 / 60; // so far the book lets the two differ
    for (double airless = 0; airless <= 89; airless += 0.5)
        EXPECT_NEAR(apparent_altitude(airless) - airless, saemundsson(airless), tenth_of_minute) << airless;
}

TEST(ApparentAltitude, IsTheHorizonAtThirtyFourMinutesBelowIt) {
    // Bennett's refraction of an apparent altitude of 0 is cot(7.31/4.4 deg) minutes of arc.
    const double refraction = 1 / std::tan(7.31 / 4.4 * degree) / 60;
    EXPECT_NEAR(apparent_altitude(-refraction), 0, 1e-9);
    EXPECT_NEAR(refraction * 60, 34.5, 0.05);
}

TEST(ApparentAltitude, GrowsWithTheAirlessOne) {
    double before = apparent_altitude(lowest_refracted);
    for (double airless = lowest_refracted + 0.01; airless < 10; airless += 0.01) {
        const double now = apparent_altitude(airless);
        EXPECT_GT(now, before) << airless;
        EXPECT_GT(now, airless) << airless;
        before = now;
    }
}

} // namespace
} // namespace halvane
