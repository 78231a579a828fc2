// SPDX-License-Identifier: MIT
#include "crescent/localsky.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/moon.h"
#include "ephemeris/sun.h"
#include "finemap/mapplaces.h"
#include "tests/crescent/crescentfixture.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace halvane {
namespace {

constexpr double any_day = 2461089.5;

class MapJudgeTest : public CrescentTest {};

double angle_between(const SkyVector& a, const SkyVector& b) {
    const SkyVector cross{a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
    return std::atan2(std::hypot(cross[0], cross[1], cross[2]), a[0] * b[0] + a[1] * b[1] + a[2] * b[2]) *
           degrees_per_radian;
}

TEST_F(MapJudgeTest, PolynomialsFollowTheSeries) {
    constexpr double tolerance = 1e-8; // [deg]
    // A Julian day in a double tells the turning Earth no better.
    constexpr double of_sidereal_time = 2e-7; // [deg]
    const SkyPolynomials sky = sky_around_date(named_ephemeris(), any_day);
    for (double universal = any_day - 1; universal < any_day + 2; universal += 0.0173) {
        const SkyPlaces series = sky_places(named_ephemeris(), universal);
        const SkyPlaces polynomials = sky.at(universal);
        EXPECT_LT(angle_between(series.sun, polynomials.sun), tolerance);
        EXPECT_LT(angle_between(series.moon, polynomials.moon), tolerance);
        EXPECT_NEAR(series.sidereal_time, polynomials.sidereal_time, of_sidereal_time);
    }
}

void expect_same(const CrescentQuantities& a, const CrescentQuantities& b) {
    constexpr double tolerance = 1e-6; // [deg]
    EXPECT_NEAR(a.moon_altitude, b.moon_altitude, tolerance);
    EXPECT_NEAR(a.moon_azimuth, b.moon_azimuth, tolerance);
    EXPECT_NEAR(a.sun_altitude, b.sun_altitude, tolerance);
    EXPECT_NEAR(a.sun_azimuth, b.sun_azimuth, tolerance);
    EXPECT_NEAR(a.elongation, b.elongation, tolerance);
    EXPECT_NEAR(a.phase_angle, b.phase_angle, tolerance);
    EXPECT_NEAR(a.width, b.width, tolerance);
    EXPECT_NEAR(a.semidiameter, b.semidiameter, tolerance);
}

TEST_F(MapJudgeTest, VectorsGiveTheQuantitiesOfTheFormulae) {
    for (const double latitude : {-70.0, -33.0, 0.0, 21.4, 52.0})
        for (const double longitude : {-150.0, 10.0, 101.0}) {
            const Observer observer = observer_at(longitude, latitude, 0);
            const double universal = any_day + 0.7;
            const Instant instant = Instant::of_ut1(universal);
            const SunPlace sun = sun_high(named_ephemeris(), instant, observer);
            const MoonPlace moon = moon_medium(named_ephemeris(), instant, observer);
            const CrescentSky sky = crescent_sky(named_ephemeris(), observer, universal);
            expect_same(sky.geocentric, crescent_quantities(named_ephemeris(), instant, observer,
                                                            {moon.right_ascension, moon.declination},
                                                            {sun.right_ascension, sun.declination},
                                                            moon.semidiameter, sun.radius, moon.distance));
            expect_same(sky.topocentric,
                        topocentric_quantities(named_ephemeris(), instant, observer, moon, sun));
            EXPECT_NEAR(sky.parallax, moon.parallax, 1e-9);
        }
}

TEST_F(MapJudgeTest, AnEveningIsTheSameFromNearAndFromTheEphemeris) {
    constexpr double millisecond = 1.0 / 86400e3; // [d]
    constexpr unsigned seed = 7;
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> any_longitude(-180, 180);
    std::uniform_real_distribution<double> any_latitude(-85, 85);
    FineMapSettings settings;
    settings.day = any_day;
    settings.conjunction = geocentric_conjunction(named_ephemeris(), any_day);
    settings.criterion = catalogued_criterion("yallop-1997");
    const SkyPolynomials sky = sky_around_date(named_ephemeris(), any_day);
    const MapJudge judge(settings, sky, 0);
    int evenings = 0;
    for (int i = 0; i < 400; ++i) {
        const MapPosition place{any_longitude(random), any_latitude(random)};
        const JudgedPlaceOfMap near = judge.judge({place.longitude - 0.3, place.latitude + 0.2}, nullptr);
        const JudgedPlaceOfMap alone = judge.judge(place, nullptr);
        const JudgedPlaceOfMap from_near = judge.judge(place, &near);
        const PlaceAnswer exact = answer_at(named_ephemeris(), settings, place);
        ASSERT_EQ(alone.evening.has_value(), exact.evening.has_value())
            << place.longitude << ' ' << place.latitude;
        ASSERT_EQ(alone.evening.has_value(), from_near.evening.has_value());
        if (!exact.evening)
            continue;
        ++evenings;
        for (const auto event : {&CrescentEvening::sun_event, &CrescentEvening::moon_event}) {
            EXPECT_NEAR((*alone.evening).*event, (*exact.evening).*event, 2 * millisecond);
            EXPECT_NEAR((*alone.evening).*event, (*from_near.evening).*event, 2 * millisecond);
        }
        EXPECT_NEAR(*alone.value, *exact.value, 1e-6);
    }
    EXPECT_GT(evenings, 300);
}

/// Midnight sun and polar night: where the Sun grazes the horizon the search finds what a plain look at every
/// minute of the day finds.
TEST_F(MapJudgeTest, GrazingEventsAreFound) {
    const double day = 2461212.5; // 2026 June 21
    const SkyPolynomials sky = sky_around_date(named_ephemeris(), day);
    int found = 0;
    for (double latitude = 65; latitude <= 68; latitude += 0.05) {
        const Observer observer = observer_at(20, latitude, 0);
        const double noon = day + 0.5 - 20.0 / 360;
        bool sets = false;
        for (int minute = -720; minute < 720; ++minute) {
            const double now = noon + minute / 1440.0;
            const auto height = [&](double t) {
                return LocalSky(sky.at(t), observer).height_over_event(Body::sun);
            };
            sets = sets || (height(now) >= 0 && height(now + 1 / 1440.0) < 0);
        }
        const auto evening = crescent_evening(sky, observer, CrescentKind::new_crescent, day, day, nullptr);
        if (evening) {
            EXPECT_TRUE(sets) << latitude;
            ++found;
        }
        if (!sets) {
            EXPECT_FALSE(evening) << latitude;
        }
    }
    EXPECT_GT(found, 5);
    EXPECT_LT(found, 55);
}

} // namespace
} // namespace halvane
