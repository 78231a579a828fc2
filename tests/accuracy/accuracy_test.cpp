// SPDX-License-Identifier: MIT
#include "tools/measureaccuracy/measurement.h"
#include "tools/measuring/swissephemeris.h"

#include <algorithm>
#include <iostream>

#include <gtest/gtest.h>

namespace halvane {
namespace {

/// The measurements, made once; the whole table is printed with them.
const std::vector<Measurement>& measurements() {
    static const std::vector<Measurement> all = [] {
        std::vector<Measurement> measured = measure_all();
        std::cout << markdown_table(measured);
        return measured;
    }();
    return all;
}

class Accuracy : public testing::Test {
protected:
    void SetUp() override {
        if (const std::string why = swiss::unavailable(); !why.empty())
            GTEST_SKIP() << "ACCURACY IS NOT MEASURED: " << why;
    }

    static void expect_within(const std::string& routine, const std::string& quantity, double bound) {
        constexpr std::size_t fewest = 500;
        const auto found =
            std::find_if(measurements().begin(), measurements().end(), [&](const Measurement& m) {
                return m.routine == routine && m.quantity == quantity;
            });
        ASSERT_NE(found, measurements().end()) << routine << ", " << quantity << " is not measured";
        EXPECT_GE(found->count, fewest) << routine << ", " << quantity;
        EXPECT_LE(found->maximum, bound) << routine << ", " << quantity << " at " << found->worst;
        EXPECT_EQ(found->one_sided, 0U) << routine << ", " << quantity << " at " << found->worst;
    }
};

TEST_F(Accuracy, SunsLongitudeKeepsThePromiseOfEachRoutine) {
    expect_within("modcorsh", "Sun, longitude", 0.35);
    expect_within("modcorsm", "Sun, longitude", 0.6);
    expect_within("modcorsl", "Sun, longitude", 40);
}

TEST_F(Accuracy, MoonsPlaceKeepsThePromiseOfEachRoutine) {
    expect_within("modcormm", "Moon, longitude", 2.2);
    expect_within("modcormm", "Moon, latitude", 0.35);
    expect_within("modcormm", "Moon, distance", 0.5);
    expect_within("modcorml", "Moon, longitude", 12);
}

TEST_F(Accuracy, EventsOfTheSunAreWithinFiveSeconds) {
    for (const char* event : {"sunrise", "sunset", "dawn at -18°", "dusk at -18°", "shadow time"})
        expect_within("modriseset", event, 5);
    expect_within("prayer_day", "Sun's transit", 5);
}

TEST_F(Accuracy, EventsOfTheMoonAreWithinTwentySeconds) {
    expect_within("modriseset", "moonrise", 20);
    expect_within("modriseset", "moonset", 20);
    expect_within("moon_day", "Moon's transit", 20);
}

TEST_F(Accuracy, EveryMeasuredQuantityKeepsItsOwnBound) {
    for (const Measurement& m : measurements())
        EXPECT_TRUE(m.is_kept()) << m.routine << ", " << m.quantity << ": " << m.maximum << " " << m.unit
                                 << " of " << m.bound << ", " << m.one_sided
                                 << " events of one side only, at " << m.worst;
}

} // namespace
} // namespace halvane
