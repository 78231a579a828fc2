// SPDX-License-Identifier: MIT
#include "tables/ephemerisrow.h"

#include "calendar/moddeltat.h"
#include "ephemeris/moon.h"
#include "ephemeris/series.h"
#include "ephemeris/sun.h"
#include "routines/namedengine.h"
#include "routines/seriesloader.h"
#include "routines/tdtinput.h"
#include "stored/programfolder.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

namespace halvane {
namespace {

constexpr double jd = 2460380.25; // 2024 March 10, 18 h

class EphemerisRowTest : public ::testing::Test {
protected:
    EphemerisRowTest() {
        set_program_folder(HALVANE_DATA);
        load_series();
    }
    const Observer amman_ = observer_at(35.9, 31.95, 900);
};

TEST_F(EphemerisRowTest, MeeusExampleOfTheSun) {
    // Meeus, Astronomical Algorithms, example 25.b: 1992 October 13, 0 h TD.
    const TdtSpan dynamical_time(1);
    const EphemerisRow row =
        ephemeris_row(named_ephemeris(), named_instant(2448908.5), amman_, TableBody::sun, true);
    EXPECT_NEAR(row.right_ascension / 15, 13 + 13.0 / 60 + 30.749 / 3600, 0.01 / 3600);
    EXPECT_NEAR(row.declination, -(7 + 47.0 / 60 + 1.74 / 3600), 0.1 / 3600);
    EXPECT_NEAR(row.longitude, 199 + 54.0 / 60 + 21.56 / 3600, 0.1 / 3600);
    EXPECT_NEAR(row.latitude, 0.721 / 3600, 0.02 / 3600);
    EXPECT_NEAR(row.distance, 0.99760853 * 149597870.66, 10);
}

TEST_F(EphemerisRowTest, MeeusExampleOfTheMoon) {
    // Meeus, example 47.a: 1992 April 12, 0 h TD; his shortened series is good to 10" and 4".
    const TdtSpan dynamical_time(1);
    const EphemerisRow row =
        ephemeris_row(named_ephemeris(), named_instant(2448724.5), amman_, TableBody::moon, true);
    EXPECT_NEAR(row.longitude, 133.167265, 10.0 / 3600);
    EXPECT_NEAR(row.latitude, -3.229126, 4.0 / 3600);
    EXPECT_NEAR(row.distance, 368409.7, 30);
    EXPECT_NEAR(row.parallax, 0.991990, 0.0001);
    EXPECT_NEAR(row.right_ascension, 134.688470, 10.0 / 3600);
    EXPECT_NEAR(row.declination, 13.768368, 10.0 / 3600);
}

TEST_F(EphemerisRowTest, DynamicalTimeIsUniversalTimeAndDeltaT) {
    for (const TableBody body : {TableBody::sun, TableBody::moon}) {
        const EphemerisRow universal =
            ephemeris_row(named_ephemeris(), named_instant(jd), amman_, body, false);
        const TdtSpan dynamical_time(1);
        const EphemerisRow dynamical = ephemeris_row(
            named_ephemeris(), named_instant(jd + universal.delta_t / 86400), amman_, body, false);
        EXPECT_NEAR(dynamical.right_ascension, universal.right_ascension, 1e-7);
        EXPECT_NEAR(dynamical.declination, universal.declination, 1e-7);
        EXPECT_NEAR(dynamical.altitude, universal.altitude, 1e-6);
        EXPECT_NEAR(dynamical.azimuth, universal.azimuth, 1e-6);
        EXPECT_NEAR(dynamical.distance, universal.distance, 0.1);
    }
}

TEST_F(EphemerisRowTest, TheObserversPlaceIsShiftedByTheParallax) {
    const EphemerisRow centre =
        ephemeris_row(named_ephemeris(), named_instant(jd), amman_, TableBody::moon, true);
    const EphemerisRow place =
        ephemeris_row(named_ephemeris(), named_instant(jd), amman_, TableBody::moon, false);
    // Parallax lowers the Moon by about sin(HP) cos(altitude); the azimuth hardly changes.
    const double expected = std::sin(centre.parallax * std::numbers::pi / 180) *
                            std::cos(place.altitude * std::numbers::pi / 180) * 180 / std::numbers::pi;
    EXPECT_NEAR(centre.altitude - place.altitude, expected, 0.01);
    EXPECT_NEAR(centre.azimuth, place.azimuth, 0.2);
    EXPECT_EQ(centre.distance, place.distance);
    EXPECT_EQ(centre.parallax, place.parallax);
}

TEST_F(EphemerisRowTest, TheMoonsDiscIsTheObserversAndTheSunsIsTheEarths) {
    const MoonPlace moon = moon_medium(named_ephemeris(), named_instant(jd), amman_);
    EXPECT_EQ(ephemeris_row(named_ephemeris(), named_instant(jd), amman_, TableBody::moon, true).semidiameter,
              moon.semidiameter);
    EXPECT_EQ(
        ephemeris_row(named_ephemeris(), named_instant(jd), amman_, TableBody::moon, false).semidiameter,
        moon.topocentric_semidiameter);
    EXPECT_EQ(ephemeris_row(named_ephemeris(), named_instant(jd), amman_, TableBody::sun, false).semidiameter,
              ephemeris_row(named_ephemeris(), named_instant(jd), amman_, TableBody::sun, true).semidiameter);
}

TEST_F(EphemerisRowTest, TheSunsDiscAndParallaxFollowItsDistance) {
    const EphemerisRow row =
        ephemeris_row(named_ephemeris(), named_instant(jd), amman_, TableBody::sun, true);
    const double radius = sun_high(named_ephemeris(), named_instant(jd), amman_).radius;
    EXPECT_NEAR(row.semidiameter * 3600, 959.63 / radius, 0.001);
    EXPECT_NEAR(row.parallax * 3600, 8.794 / radius, 0.0001);
    EXPECT_NEAR(row.distance, radius * 149597870.66, 0.001);
}

TEST_F(EphemerisRowTest, DeltaTIsInSeconds) {
    double delta_t = 0;
    moddeltat(jd, delta_t);
    EXPECT_NEAR(ephemeris_row(named_ephemeris(), named_instant(jd), amman_, TableBody::sun, true).delta_t,
                delta_t * 86400, 1e-9);
}

} // namespace
} // namespace halvane
