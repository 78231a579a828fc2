// SPDX-License-Identifier: MIT
#include "routines/modearthorientation.h"

#include "calendar/moddeltat.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/orientationterms.h"
#include "routines/seriesloader.h"
#include "routines/tdtinput.h"
#include "tests/ephemeris/observed.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>

namespace halvane {
namespace {

using EarthOrientation = EphemerisTest;

struct Orientation {
    double longitude = 0, obliquity = 0, true_obliquity = 0;
};

Orientation full(double jd) {
    Orientation o;
    modobliquity(jd, o.longitude, o.obliquity, o.true_obliquity);
    return o;
}

Orientation low(double jd) {
    Orientation o;
    modobliquitylow(jd, o.obliquity, o.longitude, o.true_obliquity);
    return o;
}

Orientation very_low(double jd) {
    Orientation o;
    modobliquityvlow(jd, o.obliquity, o.longitude, o.true_obliquity);
    return o;
}

double sidereal(double jd) {
    double time = 0;
    modsiderial(jd, time);
    return time;
}

double sidereal_low(double jd) {
    double time = 0;
    modsideriallow(jd, time);
    return time;
}

constexpr double april_1987 = 2446895.5; // 1987 April 10, 0 h

// Meeus, example 22.a: -3.788", +9.443", mean obliquity 23 deg 26' 27.407", true 23 deg 26' 36.850".
TEST_F(EarthOrientation, NutationIsThatOfTheBook) {
    const TdtSpan dynamical_time(1);
    const Orientation o = full(april_1987);
    EXPECT_NEAR(o.longitude * 3600, -3.788, 0.0005);
    EXPECT_NEAR(o.obliquity * 3600, 9.443, 0.0005);
    EXPECT_NEAR(o.true_obliquity, dms(23, 26, 36.850), 0.001 * arc_second);
    EXPECT_NEAR(o.true_obliquity - o.obliquity, dms(23, 26, 27.407), 0.0005 * arc_second);
}

// The book gives the four-term form 0.5" in longitude and 0.1" in obliquity.
TEST_F(EarthOrientation, FourTermsAreAsGoodAsTheBookSays) {
    for (const double jd : some_instants(300, 11)) {
        const Orientation good = full(jd);
        for (const Orientation& rough : {low(jd), very_low(jd)}) {
            EXPECT_NEAR(rough.longitude, good.longitude, 0.5 * arc_second);
            EXPECT_NEAR(rough.obliquity, good.obliquity, 0.1 * arc_second);
            EXPECT_NEAR(rough.true_obliquity, good.true_obliquity, 0.1 * arc_second);
        }
    }
}

TEST_F(EarthOrientation, FourTermsHaveTheirAmplitudes) {
    // At the node's and the longitudes' zero points the cosines and sines are known.
    const LowNutation at_zero = low_nutation(0, 0, 0);
    EXPECT_NEAR(at_zero.longitude * 3600, 0, 1e-12);
    EXPECT_NEAR(at_zero.obliquity * 3600, 9.2 + 0.57 + 0.1 - 0.09, 1e-12);
    const LowNutation at_quarter = low_nutation(pi / 2, pi / 4, pi / 4);
    EXPECT_NEAR(at_quarter.longitude * 3600, -17.2 - 1.32 - 0.23, 1e-12);
    EXPECT_NEAR(at_quarter.obliquity * 3600, 0.09, 1e-12);
    const LowNutation at_eighth = low_nutation(pi / 4, 0, pi / 2);
    EXPECT_NEAR(at_eighth.longitude * 3600, -17.2 * std::sqrt(0.5) + 0.21, 1e-9);
    EXPECT_NEAR(at_eighth.obliquity * 3600, 9.2 * std::sqrt(0.5) + 0.57 - 0.1, 1e-9);
}

// Laskar's polynomial as the book has it: the value at 2000 and, with u = 1 and -1, the sums of the
// coefficients.
TEST(MeanObliquity, IsLaskarsPolynomial) {
    EXPECT_NEAR(mean_obliquity(0), dms(23, 26, 21.448), 1e-12);
    EXPECT_NEAR(mean_obliquity(1) * 3600,
                84381.448 + -4680.93 - 1.55 + 1999.25 - 51.38 - 249.67 - 39.05 + 7.12 + 27.87 + 5.79 + 2.45,
                1e-9);
    EXPECT_NEAR(mean_obliquity(-1) * 3600,
                84381.448 + 4680.93 - 1.55 - 1999.25 - 51.38 + 249.67 - 39.05 - 7.12 + 27.87 - 5.79 + 2.45,
                1e-9);
    double expected = 84381.448;
    const std::array<double, 10> coefficients{-4680.93, -1.55, 1999.25, -51.38, -249.67,
                                              -39.05,   7.12,  27.87,   5.79,   2.45};
    for (std::size_t i = 0; i < coefficients.size(); ++i)
        expected += coefficients[i] * std::pow(0.5, static_cast<double>(i + 1));
    EXPECT_NEAR(mean_obliquity(0.5) * 3600, expected, 1e-9);
}

// Meeus, example 12.a: apparent sidereal time 13h 10m 46.1351s at 0 h UT, mean 13h 10m 46.3668s.
TEST_F(EarthOrientation, SiderealTimeIsThatOfTheBook) {
    EXPECT_NEAR(sidereal(april_1987), hms(13, 10, 46.1351), 0.0001 * 15 * arc_second);
    double mean = 0;
    modlasttdt(april_1987, 0, 0, 0, mean);
    EXPECT_NEAR(mean, hms(13, 10, 46.3668), 0.00005 * 15 * arc_second);
    EXPECT_NEAR(sidereal_low(april_1987), hms(13, 10, 46.1351), 0.5 * arc_second);
}

// Example 12.b: mean sidereal time 8h 34m 57.0896s at 19 h 21 m UT, 128.7378734 deg. A Julian day holds 5e-10
// d.
TEST_F(EarthOrientation, MeanSiderealTimeAtAnyInstantIsThatOfTheBook) {
    double mean = 0;
    modlasttdt(2446896.30625, 0, 0, 0, mean);
    EXPECT_NEAR(mean, 128.7378734, 3e-7);
    double west = 0;
    modlasttdt(2446896.30625, -77.0655556, 0, 0, west);
    EXPECT_NEAR(west, 128.7378734 - 77.0655556, 3e-7);
}

TEST_F(EarthOrientation, NutationEntersTheLocalTimeWithTheCosineOfTheObliquity) {
    double plain = 0;
    double with = 0;
    modlasttdt(2446896.30625, 10, 23.44 * radians_per_degree, 0, plain);
    modlasttdt(2446896.30625, 10, 23.44 * radians_per_degree, 0.004, with);
    EXPECT_NEAR(with - plain, 0.004 * std::cos(23.44 * radians_per_degree), 1e-10);
}

TEST_F(EarthOrientation, UniversalTimeRunsTheClockAndDynamicalTimeTheSeries) {
    double days = 0;
    const double jd = 2460000.5;
    moddeltat(jd, days);
    // 0: the JD is UT1.
    const double clock_ut = sidereal(jd);
    const Orientation series_ut = full(jd);
    {
        const TdtSpan dynamical_time(1);
        // 1: the JD is TDT. The same instant stands Delta T later.
        EXPECT_NEAR(sidereal(jd + days), clock_ut, 1e-6);
        EXPECT_NEAR(full(jd + days).longitude, series_ut.longitude, 1e-12);
        EXPECT_NEAR(low(jd + days).longitude, 0, 20 * arc_second);
        EXPECT_NE(full(jd).longitude, series_ut.longitude);
        EXPECT_NEAR(separation(clock_ut, sidereal(jd)), days * 360.98564736629, 1e-6);
    }
    EXPECT_EQ(full(jd).longitude, series_ut.longitude) << "the kept result is that of the reference in force";
}

TEST_F(EarthOrientation, FourTermRoutinesDifferInTheTimeReferenceOnly) {
    const double jd = 2460000.5;
    const double at_0 = low(jd).longitude;
    EXPECT_EQ(very_low(jd).longitude, at_0);
    EXPECT_EQ(very_low(jd).true_obliquity, low(jd).true_obliquity);
    const double clock = sidereal_low(jd);
    const TdtSpan dynamical_time(1);
    EXPECT_EQ(very_low(jd).longitude, at_0);
    EXPECT_NE(low(jd).longitude, at_0);
    EXPECT_EQ(sidereal_low(jd), clock) << "always universal time";
}

TEST_F(EarthOrientation, SiderealTimeStaysWithinATurnAtAnyDate) {
    for (const double jd : {0.0, 1000000.25, 2400000.75, 2451544.99, 2451545.0, 2500000.1, 5000000.3}) {
        for (const double time : {sidereal(jd), sidereal_low(jd)}) {
            EXPECT_GE(time, 0) << jd;
            EXPECT_LT(time, 360) << jd;
        }
        const double t = (jd - 2451545) / 36525;
        const double mean =
            280.46061837 + 360.98564736629 * (jd - 2451545) + 0.000387933 * t * t - t * t * t / 38710000;
        const Orientation o = full(jd);
        EXPECT_LT(
            separation(sidereal(jd), mean + o.longitude * std::cos(o.true_obliquity * radians_per_degree)),
            1e-6)
            << jd;
    }
}

struct VariationTerm {
    double amplitude, phase, rate;
    int power;
};

// The terms printed in the book's chapter on the Sun's coordinates.
constexpr VariationTerm variation_terms[]{
    {118.568, 87.5287, 359993.7286, 0}, {2.476, 85.0561, 719987.4571, 0},  {1.376, 27.8502, 4452671.1152, 0},
    {0.119, 73.1375, 450368.8564, 0},   {0.114, 337.2264, 329644.6718, 0}, {0.086, 222.54, 659289.3436, 0},
    {0.078, 162.8136, 9224659.7915, 0}, {0.054, 82.5823, 1079981.1857, 0}, {0.052, 171.5189, 225184.4282, 0},
    {0.034, 30.3214, 4092677.3866, 0},  {0.033, 119.8105, 337181.4711, 0}, {0.023, 247.5418, 299295.6151, 0},
    {0.023, 325.1526, 315559.556, 0},   {0.021, 155.1241, 675553.2846, 0}, {7.311, 333.4515, 359993.7286, 1},
    {0.305, 330.9814, 719987.4571, 1},  {0.01, 328.517, 1079981.1857, 1},  {0.309, 241.4518, 359993.7286, 2},
    {0.021, 205.0482, 719987.4571, 2},  {0.004, 297.861, 4452671.1152, 2}, {0.01, 154.7066, 359993.7286, 3}};

TEST_F(EarthOrientation, DailyVariationIsTheSumOfThePrintedTerms) {
    for (const double tau : {-4.0, -0.37, 0.0, 0.0123, 0.1, 3.3}) {
        double expected = 3548.193;
        for (const VariationTerm& term : variation_terms)
            expected += std::pow(tau, term.power) * term.amplitude *
                        std::sin((term.phase + term.rate * tau) * radians_per_degree);
        double variation = 0;
        moddabb(tau, variation);
        EXPECT_NEAR(variation * 3600, expected, 3548 * 1e-12) << tau;
    }
}

/// d L / d tau of a group of VSOP87 terms.
double rate_of_group(const SunSeries& s, std::size_t first, std::size_t count, double tau, int power) {
    double value = 0;
    double rate = 0;
    for (std::size_t i = first; i < first + count; ++i) {
        value += s.amplitude[i] * std::cos(s.phase[i] + s.frequency[i] * tau);
        rate -= s.amplitude[i] * s.frequency[i] * std::sin(s.phase[i] + s.frequency[i] * tau);
    }
    return power == 0 ? rate : rate * std::pow(tau, power) + power * value * std::pow(tau, power - 1);
}

// The variation in a fixed frame is the motion of the longitude of date less the precession, 0.1377" a day.
TEST_F(EarthOrientation, DailyVariationIsTheMotionOfTheSeries) {
    for (const double jd : some_instants(100, 12)) {
        const double tau = (jd - epoch_j2000) / 365250;
        double rate = 0;
        std::size_t first = 0;
        for (int power = 0; power < 6; ++power) {
            rate += rate_of_group(loaded_theory()->termfull(), first,
                                  termfull_groups[static_cast<std::size_t>(power)], tau, power);
            first += termfull_groups[static_cast<std::size_t>(power)];
        }
        double variation = 0;
        moddabb(tau, variation);
        EXPECT_NEAR(variation * 3600, rate * degrees_per_radian * 3600 / 365250 - 50.29 / 365.25, 0.15);
    }
}

} // namespace
} // namespace halvane
