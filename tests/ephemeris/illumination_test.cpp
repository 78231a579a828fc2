// SPDX-License-Identifier: MIT
#include "ephemeris/illumination.h"

#include "ephemeris/modgeneral.h"

#include <cmath>
#include <gtest/gtest.h>

namespace halvane {
namespace {

// Meeus, Astronomical Algorithms, example 48.a: 1992 April 12, 0 h dynamical time.
constexpr EquatorialPlace moon_of_meeus{134.6885, 13.7684};
constexpr EquatorialPlace sun_of_meeus{20.6579, 8.6964};
constexpr double radius_of_meeus = 1.0024977;
constexpr double distance_of_meeus = 368410;

TEST(Illumination, OfTheExampleOfMeeus) {
    const Illumination lit =
        moon_illumination(moon_of_meeus, sun_of_meeus, radius_of_meeus, distance_of_meeus);
    EXPECT_NEAR(lit.elongation, 110.7929, 0.0001);
    EXPECT_NEAR(lit.phase_angle, 69.0756, 0.0001);
    EXPECT_NEAR(lit.fraction, 0.6786, 0.00005);
    EXPECT_NEAR(rev360(bright_limb_angle(moon_of_meeus, sun_of_meeus)), 285.0, 0.05);
}

TEST(Illumination, ElongationAndPhaseAngleAreTwoAnglesOfTheTriangleWithTheSun) {
    for (double difference = 0.5; difference < 180; difference += 7.3) {
        const Illumination lit = moon_illumination({difference, 0}, {0, 0}, 1, distance_of_meeus);
        EXPECT_NEAR(lit.elongation, difference, 1e-9);
        const double at_sun = 180 - lit.elongation - lit.phase_angle;
        EXPECT_NEAR(std::sin(at_sun * radians_per_degree) / distance_of_meeus,
                    std::sin(lit.phase_angle * radians_per_degree) / astronomical_unit_km, 1e-18);
    }
}

TEST(Illumination, TheDiscIsDarkTowardsTheSunAndFullAgainstIt) {
    EXPECT_NEAR(moon_illumination({100, 10}, {100, 10}, 1, distance_of_meeus).fraction, 0, 1e-9);
    EXPECT_NEAR(moon_illumination({280, -10}, {100, 10}, 1, distance_of_meeus).fraction, 1, 1e-9);
}

TEST(BrightLimb, PointsToTheSunByTheFourQuarters) {
    EXPECT_NEAR(rev360(bright_limb_angle({50, 0}, {50, 20})), 0, 1e-9);
    EXPECT_NEAR(bright_limb_angle({50, 0}, {70, 0}), 90, 1e-9);
    EXPECT_NEAR(bright_limb_angle({50, 0}, {50, -20}), 180, 1e-9);
    EXPECT_NEAR(rev360(bright_limb_angle({50, 0}, {30, 0})), 270, 1e-9);
}

} // namespace
} // namespace halvane
