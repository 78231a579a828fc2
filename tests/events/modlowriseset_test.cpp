// SPDX-License-Identifier: MIT
#include "events/lowriseset.h"

#include "calendar/moddeltat.h"
#include "ephemeris/interpolation.h"
#include "ephemeris/moon.h"
#include "ephemeris/series.h"
#include "events/riseset.h"
#include "routines/modriseset.h"
#include "routines/namedengine.h"
#include "routines/seriesloader.h"
#include "routines/tdtinput.h"
#include "tests/ephemeris/observed.h"

#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

namespace halvane {
namespace {

using FastRiseSet = EphemerisTest;

struct Events {
    TaggedTime rise, set;
};

Events fast(double jd, double longitude, double latitude, const char* body) {
    Events found;
    modlowriseset(jd, longitude, latitude, body, found.rise, found.set);
    return found;
}

TEST_F(FastRiseSet, AgreesWithTheSearchWithin40Seconds) {
    std::mt19937 random(20);
    std::uniform_int_distribution<int> latitude(-60, 60);
    std::uniform_int_distribution<int> longitude(-179, 179);
    std::uniform_int_distribution<int> day(0, 36500);
    int compared = 0;
    for (int i = 0; i < 200; ++i) {
        const int lat = latitude(random);
        const int lon = longitude(random);
        const double jd = 2433282.5 + day(random);
        folder.write("loc.vsk", "\"P\"," + std::to_string(std::abs(lon)) + ",0,0," +
                                    std::to_string(std::abs(lat)) + ",0,0,0,0," +
                                    (lon < 0 ? "#FALSE#" : "#TRUE#") + "," +
                                    (lat < 0 ? "#FALSE#" : "#TRUE#") + ",#FALSE#,#FALSE#,0,1010,10\r\n");
        for (const char* body : {"Sun", "Moon"}) {
            const Events quick = fast(jd, lon, lat, body);
            Events searched;
            modriseset(body, jd - zone_of_longitude(lon) / 24, searched.rise, searched.set);
            for (const auto& [a, b] :
                 {std::pair{quick.rise, searched.rise}, std::pair{quick.set, searched.set}}) {
                const double* one = hours_of(a);
                const double* other = hours_of(b);
                // Once in a while the fast form takes the event of the neighbouring day.
                if (one == nullptr || other == nullptr || std::fabs(*one - *other) > 12)
                    continue;
                EXPECT_LT(std::fabs(*one - *other) * 3600, 40)
                    << body << " " << lat << " " << lon << " " << jd;
                ++compared;
            }
        }
    }
    EXPECT_GT(compared, 700);
}

TEST_F(FastRiseSet, DoesNotDependOnTheSearchesBefore) {
    const Observer observer = observer_at(36, 32, 0);
    for (const SeriesUse use : {SeriesUse::each_instant, SeriesUse::interpolated}) {
        std::vector<std::function<double(Ephemeris&)>> searches;
        for (const Body body : {Body::sun, Body::moon})
            for (const double jd : {2461089.5, 2461090.5})
                for (const TimeScale scale : {TimeScale::ut1, TimeScale::dynamical})
                    searches.emplace_back([=, &observer](Ephemeris& ephemeris) {
                        return *hours_of(low_rise_set(ephemeris, body, {jd, scale}, observer).set);
                    });
        std::vector<double> alone;
        for (const auto& search : searches) {
            Ephemeris fresh(loaded_theory(), use);
            alone.push_back(search(fresh));
        }
        Ephemeris shared(loaded_theory(), use);
        for (std::size_t one = 0; one < searches.size(); ++one)
            for (std::size_t other = 0; other < searches.size(); ++other) {
                EXPECT_EQ(searches[one](shared), alone[one]);
                EXPECT_EQ(searches[other](shared), alone[other]) << other << " after " << one;
            }
    }
}

TEST_F(FastRiseSet, KnowsNoEventsWhereTheBodyStaysUpOrDown) {
    for (const double day : {2461213.5, 2461395.5}) {
        const Events sun = fast(day, 20, 80, "Sun");
        EXPECT_TRUE(is(sun.rise, NoEvent::none));
        EXPECT_TRUE(is(sun.set, NoEvent::none));
    }
}

TEST_F(FastRiseSet, AResultOutOfTheDayIsNone) {
    // By a second program, without the bounds: 24.1317 and -0.3172 h.
    EXPECT_TRUE(is(fast(2461080.5, 170, 21.2, "Moon").rise, NoEvent::none));
    EXPECT_TRUE(is(fast(2461272.5, 139, -22.6, "Moon").set, NoEvent::none));
}

TEST_F(FastRiseSet, StopsAfterSixRounds) {
    // By a second program: at 62.8 N, where the Moon hardly rises, six rounds have not settled; twelve would
    // end at 15.41812 and 15.44408 h.
    const Events moon = fast(2461287.5, 112, 62.8, "Moon");
    ASSERT_TRUE(hours_of(moon.rise) != nullptr && hours_of(moon.set) != nullptr);
    EXPECT_NEAR(*hours_of(moon.rise), 16.31136, 1e-4);
    EXPECT_NEAR(*hours_of(moon.set), 17.38398, 1e-4);
}

TEST_F(FastRiseSet, ReadsNoFile) {
    folder.erase("loc.vsk");
    folder.erase("pref.vsk");
    EXPECT_NE(hours_of(fast(2461213.5, 20, 40, "Sun").rise), nullptr);
    EXPECT_NE(hours_of(fast(2461213.5, 20, 40, "Moon").set), nullptr);
}

TEST_F(FastRiseSet, FoldsASetPastMidnightToTheDaysStart) {
    // In high summer at 65.65 N, at the zone's western edge, the Sun sets after the zone's midnight.
    const Events sun = fast(2461212.5, -22, 65.65, "Sun");
    const double* rise = hours_of(sun.rise);
    const double* set = hours_of(sun.set);
    ASSERT_TRUE(rise != nullptr && set != nullptr);
    EXPECT_LT(*set, *rise);
    EXPECT_LT(*set, 3);
}

TEST_F(FastRiseSet, MoonsStandardAltitudeIsNearAnEighthOfADegree) {
    // 0.7275 p - 0.5667: the Moon is found there within its Newton step's half minute.
    for (const double jd : some_instants(20, 61)) {
        const double day = std::floor(jd) + 0.5;
        const Events moon = fast(day, 0, 35, "Moon");
        if (const double* rise = hours_of(moon.rise)) {
            const MoonPlace place =
                moon_fast(named_ephemeris(), named_instant(day + *rise / 24), observer_at(0, 35, 0));
            double altitude = 0;
            double azimuth = 0;
            modlowaltazm(day + *rise / 24, place.right_ascension, place.declination, 0, 35, altitude,
                         azimuth);
            EXPECT_NEAR(altitude, 0.7275 * place.parallax - 0.5667, 0.02);
            EXPECT_NEAR(0.7275 * place.parallax - 0.5667, 0.125, 0.055);
        }
    }
}

TEST_F(FastRiseSet, ZoneIsTheNearestHourHalfToEven) {
    EXPECT_EQ(zone_of_longitude(0), 0);
    EXPECT_EQ(zone_of_longitude(7.5), 0);
    EXPECT_EQ(zone_of_longitude(22.5), 2);
    EXPECT_EQ(zone_of_longitude(-22.5), -2);
    EXPECT_EQ(zone_of_longitude(-37.5), -2);
    EXPECT_EQ(zone_of_longitude(180), 12);
}

TEST_F(FastRiseSet, CorrectionIsTheBooksStep) {
    // From ten minutes off one step comes within seconds.
    const double midnight = 2461213.5;
    const Events sun = fast(midnight, 0, 40, "Sun");
    const double* rise = hours_of(sun.rise);
    ASSERT_NE(rise, nullptr);
    double corrected = 0;
    modvlowriseset(*rise + 1.0 / 6, midnight, -0.833333, 40, 0, "Sun", corrected);
    EXPECT_NEAR(corrected, *rise, 0.02);
}

} // namespace
} // namespace halvane
