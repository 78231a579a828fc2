// SPDX-License-Identifier: MIT
#include "crescent/crescentevening.h"

#include "crescent/criteria.h"
#include "events/phase.h"
#include "tests/crescent/crescentfixture.h"
#include "tests/crescent/nineskies.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

namespace halvane {
namespace {

constexpr double degree_tolerance = 0.01;
constexpr double width_tolerance = 0.001; // [arcmin]
constexpr double second = 1.0 / 86400;
constexpr double swiss_delta_t = 69 * second;
constexpr double tenth_of_minute = 0.1;

class EveningOfSky : public CrescentTest, public ::testing::WithParamInterface<KnownSky> {};

TEST_P(EveningOfSky, EventsAreThoseOfTheSwissEphemeris) {
    const KnownSky& known = GetParam();
    const CrescentEvening evening = evening_of(known);
    // In dynamical time: the two have a Delta T of their own.
    const double delta_t = Instant::of_ut1(evening.conjunction).delta_t();
    EXPECT_NEAR(evening.conjunction + delta_t, known.conjunction() + swiss_delta_t, 3 * second);
    EXPECT_NEAR(evening.sun_event, known.sun_event(), 3 * second);
    EXPECT_NEAR(evening.moon_event, known.moon_event(), 3 * second);
    EXPECT_NEAR(evening.at_best_time.universal, known.best_time(), 3 * second);
    EXPECT_NEAR(evening.lag(), known.lag, tenth_of_minute);
    const double direction = known.kind == CrescentKind::new_crescent ? 1 : -1;
    EXPECT_NEAR(direction * evening.age(evening.sun_event), known.age_at_sun_event, degree_tolerance);
    EXPECT_NEAR(direction * evening.age(evening.moon_event), known.age_at_moon_event, degree_tolerance);
}

void expect_sky(const CrescentSky& sky, const KnownQuantities& known) {
    EXPECT_NEAR(sky.geocentric.elongation, known.elongation_geocentric, degree_tolerance);
    EXPECT_NEAR(sky.geocentric.relative_altitude(), known.arcv_geocentric, degree_tolerance);
    EXPECT_NEAR(sky.geocentric.relative_azimuth(), -known.daz, degree_tolerance);
    EXPECT_NEAR(sky.geocentric.moon_altitude, known.altitude_geocentric, degree_tolerance);
    EXPECT_NEAR(sky.topocentric.elongation, known.elongation_topocentric, degree_tolerance);
    EXPECT_NEAR(sky.topocentric.relative_altitude(), known.arcv_topocentric, degree_tolerance);
    EXPECT_NEAR(sky.topocentric.moon_altitude, known.altitude_topocentric, degree_tolerance);
    EXPECT_NEAR(sky.topocentric.width_minutes(), known.width_topocentric, width_tolerance);
}

TEST_P(EveningOfSky, QuantitiesAreThoseOfTheSwissEphemeris) {
    const KnownSky& known = GetParam();
    const CrescentEvening evening = evening_of(known);
    expect_sky(evening.at_sun_event, known.at_sun_event);
    expect_sky(evening.at_best_time, known.at_best_time);
    EXPECT_NEAR(evening.at_best_time.parallax * 60, known.parallax, degree_tolerance);
    const CrescentQuantities& q = evening.at_sun_event.topocentric;
    EXPECT_NEAR(q.semidiameter * 60, known.semidiameter, degree_tolerance);
    EXPECT_NEAR(apparent_lower_limb(q.moon_altitude, q.semidiameter), known.lower_limb, degree_tolerance);
}

INSTANTIATE_TEST_SUITE_P(OfTheWorld, EveningOfSky, ::testing::ValuesIn(nine_skies),
                         [](const auto& tried) { return std::string(tried.param.name); });

class Evening : public CrescentTest {};

TEST_F(Evening, WithoutSunsetThereIsNone) {
    // Tromso in the polar night and under the midnight sun.
    const Observer observer = observer_at(18.96, 69.65, 0);
    for (const CivilDay date : {CivilDay{2025, 12, 21}, CivilDay{2025, 6, 26}}) {
        const double day = julian_day(date);
        const double conjunction = geocentric_conjunction(named_ephemeris(), day);
        EXPECT_FALSE(
            crescent_evening(named_ephemeris(), observer, CrescentKind::new_crescent, day, conjunction));
    }
}

class ConjunctionsOfAYear : public CrescentTest, public ::testing::WithParamInterface<int> {};

// No month is shorter than 29.2 d or longer than 29.9 d, so a year has twelve or thirteen conjunctions.
TEST_P(ConjunctionsOfAYear, FollowEachOther) {
    const double first = julian_day({GetParam(), 1, 1});
    const double end = julian_day({GetParam() + 1, 1, 1});
    int found = 0;
    double conjunction = geocentric_conjunction(named_ephemeris(), first);
    EXPECT_LT(std::fabs(conjunction - first), 15);
    while (conjunction < end) {
        found += conjunction >= first ? 1 : 0;
        ASSERT_LE(found, 13);
        const double next = geocentric_conjunction(named_ephemeris(), conjunction + synodic_month);
        EXPECT_GT(next - conjunction, 29.2);
        EXPECT_LT(next - conjunction, 29.9);
        conjunction = next;
    }
    EXPECT_GE(found, 12);
}

TEST_P(ConjunctionsOfAYear, AreTheNearestOfEachDay) {
    const double first = julian_day({GetParam(), 1, 1});
    double known = geocentric_conjunction(named_ephemeris(), first);
    double next = geocentric_conjunction(named_ephemeris(), known + synodic_month);
    const double end = known + 60;
    for (double day = known; day < end; day += 0.25) {
        if (day >= next) {
            known = next;
            next = geocentric_conjunction(named_ephemeris(), known + synodic_month);
        }
        const double nearest = day - known < next - day ? known : next;
        EXPECT_NEAR(geocentric_conjunction(named_ephemeris(), day), nearest, second) << day;
    }
}

INSTANTIATE_TEST_SUITE_P(OfTheTheories, ConjunctionsOfAYear,
                         ::testing::Values(-3999, -3000, 1, 2026, 3500, 5000, 9000, 9990),
                         [](const auto& tried) {
                             return (tried.param < 0 ? "Before" : "Of") +
                                    std::to_string(std::abs(tried.param));
                         });

} // namespace
} // namespace halvane
