// SPDX-License-Identifier: MIT
#include "events/riseset.h"
#include "prayer/moonday.h"
#include "routines/namedengine.h"
#include "tests/prayer/days.h"
#include "tests/support/places.h"

#include <gtest/gtest.h>

namespace halvane {
namespace {

class MoonDayTest : public DayTest {
protected:
    /// The texts of a day to the minute.
    struct MoonTexts {
        std::string rise, transit, set;
    };
    MoonTexts moon_of(const Location& location, double year, double month, double day) const {
        write_loc(location);
        write_pref({});
        const MoonTimes times =
            moon_day(named_ephemeris(), read_pref(), read_loc(), jd_of(year, month, day), 0);
        return {text_of(times.rise, 1), text_of(times.transit, 1), text_of(times.set, 1)};
    }
};

TEST_F(MoonDayTest, WithoutMoonriseHasItsSetAndTransit) {
    bool found = false;
    for (int day = 1; day <= 30 && !found; ++day) {
        const MoonTexts times = moon_of(place_at(36, 32, 2), 2026, 4, day);
        found = times.rise == "----";
        if (found) {
            EXPECT_EQ(times.set.size(), 5U);
            EXPECT_NE(times.set, "----");
            EXPECT_NE(times.transit, "----");
        }
    }
    EXPECT_TRUE(found) << "the Moon skips a rise once a month";
}

TEST_F(MoonDayTest, OfAPolarMoonIsUpWithATransitOrDownThroughout) {
    int up = 0;
    int down = 0;
    for (int day = 1; day <= 30; ++day) {
        const MoonTexts times = moon_of(place_at(40, 87, 3), 2026, 6, day);
        if (times.rise == "Up") {
            EXPECT_EQ(times.set, "Up");
            EXPECT_NE(times.transit, "Up");
            ++up;
        }
        if (times.rise == "Down") {
            EXPECT_EQ(times.set, "Down");
            EXPECT_EQ(times.transit, "Down");
            ++down;
        }
    }
    EXPECT_GT(up, 8);
    EXPECT_GT(down, 8);
}

// The Moon grazes the southern horizon: by the Swiss Ephemeris its upper limb rises at 00:20, sets at 00:40
// and rises again at 22:39. The user's guide tells of this day.
TEST_F(MoonDayTest, OnTheBorderOfTheDaysWithoutMoonriseFindsOneMomentThreeTimes) {
    const MoonTexts times = moon_of(place_at(20, 67, 1), 2024, 7, 22);
    EXPECT_EQ(times.rise, "00:40");
    EXPECT_EQ(times.transit, "00:40");
    EXPECT_EQ(times.set, "00:40");
}

TEST_F(MoonDayTest, FoldsATransitThatFallsInNoHourOfTheDay) {
    // The Moon of 2026 January 2 passes between the late evening of the first and the small hours of the
    // third. Folded into the day, the moment is off the meridian by the Moon's motion of a day, twelve
    // degrees and more, and the azimuth test refuses it; every other day of the month has its passage.
    for (int day = 1; day <= 31; ++day) {
        const MoonTexts times = moon_of(place_at(36, 32, 3), 2026, 1, day);
        EXPECT_EQ(times.transit == "----", day == 2) << day << ": " << times.transit;
        EXPECT_EQ(times.transit.size(), day == 2 ? 4U : 5U) << day;
    }
}

TEST_F(MoonDayTest, DipMovesTheMoonsHorizonForGood) {
    Location mountain = place_at(36, 32, 2);
    const auto horizon_of_day = [](const Location& location) {
        return moon_rise_set(named_ephemeris(), read_pref(), location, jd_of(2026, 4, 10), location.zone)
            .horizon_altitude;
    };
    const MoonTexts low = moon_of(mountain, 2026, 4, 10);
    const double horizon = horizon_of_day(mountain);
    mountain.elevation = 900;
    const MoonTexts high = moon_of(mountain, 2026, 4, 10);
    EXPECT_NEAR(horizon_of_day(mountain), horizon - (0.02917 + 0.0061667) * 30, 2e-5);
    EXPECT_EQ(high.rise, low.rise) << "the setting is off";
}

} // namespace
} // namespace halvane
