// SPDX-License-Identifier: MIT
#include "routines/modriseset.h"

#include "ephemeris/modgeneral.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace halvane {
namespace {

struct HourAngles {
    double h1 = 999, h2 = 999;
    int flag1 = 9, flag2 = 9;
};

HourAngles at_azimuth(double latitude, double declination, double azimuth) {
    HourAngles result;
    modhourangle(latitude, declination, azimuth, result.h1, result.flag1, result.h2, result.flag2);
    return result;
}

/// Azimuth from north of a body at an hour angle.
double azimuth_of(double latitude, double declination, double hour_angle) {
    const double h = hour_angle * radians_per_degree;
    const double b = latitude * radians_per_degree;
    const double d = declination * radians_per_degree;
    return std::fmod(std::atan2(std::sin(h), std::cos(h) * std::sin(b) - std::tan(d) * std::cos(b)) *
                             degrees_per_radian +
                         540,
                     360);
}

TEST(HourAngleAtAzimuth, PutsTheBodyAtTheAzimuth) {
    std::mt19937 random(9);
    std::uniform_real_distribution<double> latitude(-65, 65);
    std::uniform_real_distribution<double> declination(-23, 23);
    std::uniform_real_distribution<double> azimuth(1, 359);
    int valid = 0;
    for (int i = 0; i < 2000; ++i) {
        const double b = latitude(random);
        const double d = declination(random);
        const double a = azimuth(random);
        if (std::fabs(a - 180) < 1)
            continue;
        const HourAngles found = at_azimuth(b, d, a);
        for (const auto& [h, flag] : {std::pair{found.h1, found.flag1}, std::pair{found.h2, found.flag2}}) {
            if (flag != 0)
                continue;
            ++valid;
            EXPECT_NEAR(std::remainder(azimuth_of(b, d, h) - a, 360), 0, 1e-6) << b << " " << d << " " << a;
        }
    }
    EXPECT_GT(valid, 1000);
}

TEST(HourAngleAtAzimuth, FindsTheDayAndTheNightPassage) {
    // At 31 N a Sun of declination 23 stands due west of the 285th degree in the afternoon and never in the
    // morning.
    const HourAngles found = at_azimuth(31, 23, 285);
    EXPECT_TRUE(found.flag1 == 0 || found.flag2 == 0);
    for (const auto& [h, flag] : {std::pair{found.h1, found.flag1}, std::pair{found.h2, found.flag2}})
        if (flag == 0) {
            EXPECT_GT(h, 0) << "west of the meridian";
        }
}

TEST(HourAngleAtAzimuth, NeverReachedHasNoSolutionAndKeepsTheOutputs) {
    // A star near the pole stays near north.
    const HourAngles found = at_azimuth(31, 85, 90);
    EXPECT_EQ(found.flag1, -1);
    EXPECT_EQ(found.flag2, -1);
    EXPECT_EQ(found.h1, 999);
    EXPECT_EQ(found.h2, 999);
}

} // namespace
} // namespace halvane
