// SPDX-License-Identifier: MIT
#include "ephemeris/sun.h"

#include "calendar/moddeltat.h"
#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"
#include "routines/modsun.h"
#include "routines/namedengine.h"
#include "routines/tdtinput.h"
#include "tests/ephemeris/observed.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>

namespace halvane {
namespace {

using SunTest = EphemerisTest;
using Routine = void (*)(double, double, double&, double&, double&, double&, double&, double&, double&,
                         double&, double&, double&);

SunPlace by(Routine routine, double jd) {
    SunPlace s;
    routine(pi, jd, s.right_ascension, s.declination, s.topocentric_right_ascension,
            s.topocentric_declination, s.longitude, s.latitude, s.topocentric_longitude,
            s.topocentric_latitude, s.radius, s.equation_of_time);
    return s;
}

SunPlace by_fast(double longitude, double latitude, double jd) {
    SunPlace s;
    modcorsvl(longitude, latitude, jd, s.right_ascension, s.declination, s.topocentric_right_ascension,
              s.topocentric_declination, s.longitude, s.latitude, s.topocentric_longitude,
              s.topocentric_latitude, s.radius);
    return s;
}

constexpr double october_1992 = 2448908.5; // 1992 October 13, 0 h TD

// Meeus, example 25.b with the complete theory: +0.721", 0.99760853, 13h 13m 30.749s, -7 deg 47' 1.74". The
// longitude is that of this equatorial place.
TEST_F(SunTest, CompleteSeriesIsTheBooks) {
    const TdtSpan dynamical_time(1);
    const SunPlace sun = by(modcorsh, october_1992);
    EXPECT_NEAR(sun.longitude, dms(199, 54, 21.56), 0.02 * arc_second);
    EXPECT_NEAR(sun.latitude, 0.721 * arc_second, 0.002 * arc_second);
    EXPECT_NEAR(sun.radius, 0.99760853, 2e-8);
    EXPECT_NEAR(sun.right_ascension, hms(13, 13, 30.749), 0.001 * 15 * arc_second);
    EXPECT_NEAR(sun.declination, -dms(7, 47, 1.74), 0.01 * arc_second);
}

TEST_F(SunTest, ShortSeriesIsNearTheBook) {
    const TdtSpan dynamical_time(1);
    const SunPlace sun = by(modcorsm, october_1992);
    EXPECT_NEAR(sun.longitude, dms(199, 54, 21.56), 0.4 * arc_second);
    EXPECT_NEAR(sun.radius, 0.99760775, 1e-6);
}

// Example 25.a: 199.90895 deg, 0.99766, 198.38083, -7.78507. The book's obliquity there, 23.43999 deg, has
// one term of the nutation; the whole of it, 23.440144 deg, moves the declination by -4.7e-5 deg.
TEST_F(SunTest, LowFormulaeAreTheBooks) {
    stand_at(0, 0, 0);
    {
        const TdtSpan dynamical_time(1);
        const SunPlace sun = by(modcorsl, october_1992);
        EXPECT_NEAR(sun.longitude, 199.90895, 1e-5);
        EXPECT_NEAR(sun.radius, 0.99766, 6e-6);
        EXPECT_NEAR(sun.right_ascension, 198.38083, 3e-5);
        EXPECT_NEAR(sun.declination, -7.78507 - 4.7e-5, 1e-5);
    }
    double days = 0;
    moddeltat(october_1992, days);
    const SunPlace fast = by_fast(0, 0, october_1992 - days);
    EXPECT_NEAR(fast.longitude, 199.90895, 2e-5);
    EXPECT_NEAR(fast.radius, 0.99766, 6e-6);
    EXPECT_NEAR(fast.declination, -7.78507 - 4.7e-5, 1e-5);
}

// Example 28.a: E = +3.427351 deg, with the right ascension 198.378178 deg of the book's own short series;
// that of the complete one is 13h 13m 30.749s. The two series take the nutation, +0.004419 deg, whole instead
// of times cos 23.440144 deg.
TEST_F(SunTest, EquationOfTimeIsTheBooks) {
    const TdtSpan dynamical_time(1);
    const double whole_nutation = 0.004419 * (1 - std::cos(23.440144 * radians_per_degree));
    const double complete = 3.427351 + 198.378178 - hms(13, 13, 30.749);
    EXPECT_NEAR(by(modcorsh, october_1992).equation_of_time, 4 * (complete + whole_nutation), 4 * 4e-6);
    EXPECT_NEAR(by(modcorsm, october_1992).equation_of_time, 4 * (3.427351 + whole_nutation), 4 * 1e-4);
    EXPECT_NEAR(by(modcorsl, october_1992).equation_of_time, 4 * 3.427351, 4 * 3e-3);
}

TEST_F(SunTest, LevelsAgreeWithinTheirPrecision) {
    stand_at(36, 31, 800);
    for (const double jd : some_instants(200, 21)) {
        const SunPlace high = by(modcorsh, jd);
        const SunPlace medium = by(modcorsm, jd);
        EXPECT_LT(separation(medium.longitude, high.longitude), 0.6 * arc_second);
        EXPECT_NEAR(medium.latitude, high.latitude, 0.2 * arc_second);
        EXPECT_NEAR(medium.radius, high.radius, 2e-6);
        for (const SunPlace& low : {by(modcorsl, jd), by_fast(36, 31, jd)}) {
            EXPECT_LT(separation(low.longitude, high.longitude), 40 * arc_second);
            EXPECT_NEAR(low.radius, high.radius, 6e-5);
            EXPECT_LT(separation(low.right_ascension, high.right_ascension), 45 * arc_second);
            EXPECT_NEAR(low.declination, high.declination, 20 * arc_second);
            EXPECT_LT(separation(low.topocentric_right_ascension, high.topocentric_right_ascension),
                      45 * arc_second);
            EXPECT_NEAR(low.topocentric_declination, high.topocentric_declination, 20 * arc_second);
        }
    }
}

TEST_F(SunTest, LowLatitudesAreExactlyZero) {
    for (const double jd : some_instants(50, 22)) {
        EXPECT_EQ(by(modcorsl, jd).latitude, 0);
        EXPECT_EQ(by_fast(10, 20, jd).latitude, 0);
    }
}

TEST_F(SunTest, DynamicalTimeIsTakenAsItStands) {
    double days = 0;
    const double jd = 2460000.5;
    moddeltat(jd, days);
    for (const Routine routine : {modcorsh, modcorsm, modcorsl}) {
        const double universal = by(routine, jd).longitude;
        const TdtSpan dynamical_time(1);
        EXPECT_NEAR(by(routine, jd + days).longitude, universal, 1e-9);
        EXPECT_NEAR(universal - by(routine, jd).longitude, days * 1.0, 3e-5) << "a degree a day";
    }
}

TEST_F(SunTest, FastRoutineAddsDeltaTInAnyCase) {
    const double universal = by_fast(36, 31, 2460000.5).longitude;
    const TdtSpan dynamical_time(1);
    EXPECT_EQ(by_fast(36, 31, 2460000.5).longitude, universal);
}

TEST_F(SunTest, FastRoutineReadsNoFile) {
    folder.erase("loc.vsk");
    EXPECT_GT(by_fast(36, 31, 2460000.5).radius, 0.98);
}

TEST_F(SunTest, EquationOfTimeStaysWithin24MinutesWithoutJumps) {
    for (const Routine routine : {modcorsm, modcorsl}) {
        double before = by(routine, 2460000.5).equation_of_time;
        for (double jd = 2460001.5; jd < 2460000.5 + 2 * 366; jd += 1) {
            const double now = by(routine, jd).equation_of_time;
            EXPECT_LT(std::fabs(now), 17);
            EXPECT_LT(std::fabs(now - before), 0.6) << jd;
            before = now;
        }
    }
}

TEST_F(SunTest, OutputsStandInTheOrderOfTheInterface) {
    stand_at(36, 31, 800);
    const double jd = 2460000.5;
    const Observer observer = observer_at(36, 31, 800);
    const struct {
        Routine routine;
        SunPlace place;
    } pairs[]{{modcorsh, sun_high(named_ephemeris(), named_instant(jd), observer)},
              {modcorsm, sun_medium(named_ephemeris(), named_instant(jd), observer)},
              {modcorsl, sun_low(named_ephemeris(), named_instant(jd), observer)}};
    for (const auto& pair : pairs) {
        std::array<double, 10> o{};
        pair.routine(pi, jd, o[0], o[1], o[2], o[3], o[4], o[5], o[6], o[7], o[8], o[9]);
        const SunPlace& p = pair.place;
        const std::array<double, 10> expected{
            p.right_ascension, p.declination,     p.topocentric_right_ascension, p.topocentric_declination,
            p.longitude,       p.latitude,        p.topocentric_longitude,       p.topocentric_latitude,
            p.radius,          p.equation_of_time};
        EXPECT_EQ(o, expected);
        // The parallax of at most 8.8" draws both places apart, and the equatorial ones follow the ecliptic
        // ones.
        EXPECT_NEAR(p.topocentric_declination, p.declination, 9 * arc_second);
        EXPECT_NE(p.topocentric_declination, p.declination);
        EXPECT_NE(p.topocentric_longitude, p.longitude);
    }
}

} // namespace
} // namespace halvane
