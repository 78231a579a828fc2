// SPDX-License-Identifier: MIT
#include "calendar/moddeltat.h"
#include "routines/tdtinput.h"

#include <gtest/gtest.h>

namespace halvane {
namespace {

double jd_of_year(double year) {
    return 1721057 + 365.2425 * year;
}

double seconds_at(double year) {
    double days = 0;
    moddeltat(jd_of_year(year), days);
    return days * 86400;
}

// Delta T from observations as tabulated in Espenak and Meeus, Five Millennium Canon of Solar Eclipses,
// tables 1 and 2. The polynomials follow it within a second and a half from 1650 on, and within the table's
// own rounding before.
TEST(DeltaT, FollowsThePublishedTable) {
    struct Row {
        double year, seconds, tolerance;
    };
    for (const Row& row :
         {Row{-500, 17190, 25}, Row{-400, 15530, 20}, Row{-300, 14080, 20}, Row{-200, 12790, 20},
          Row{-100, 11640, 20}, Row{0, 10580, 10},    Row{100, 9600, 15},   Row{200, 8640, 10},
          Row{300, 7680, 10},   Row{400, 6700, 10},   Row{500, 5710, 15},   Row{600, 4740, 15},
          Row{700, 3810, 15},   Row{800, 2960, 15},   Row{900, 2200, 15},   Row{1000, 1570, 10},
          Row{1100, 1090, 10},  Row{1200, 740, 10},   Row{1300, 490, 10},   Row{1400, 320, 10},
          Row{1500, 200, 10},   Row{1600, 120, 5},    Row{1700, 9, 3},      Row{1750, 13, 2},
          Row{1800, 14, 1},     Row{1850, 7, 1},      Row{1900, -3, 1},     Row{1950, 29, 1},
          Row{1955, 31.1, 0.5}, Row{1960, 33.2, 0.5}, Row{1965, 35.7, 0.5}, Row{1970, 40.2, 0.5},
          Row{1975, 45.5, 0.5}, Row{1980, 50.5, 0.5}, Row{1985, 54.3, 0.5}, Row{1990, 56.9, 0.5},
          Row{1995, 60.8, 0.5}, Row{2000, 63.8, 0.5}, Row{2005, 64.7, 0.5}})
        EXPECT_NEAR(seconds_at(row.year), row.seconds, row.tolerance) << row.year;
}

// Every branch at its first year and some years into it, summed apart in exact fractions from the published
// expressions.
TEST(DeltaT, TakesEachBranchFromItsYearOn) {
    constexpr double just_after = 1e-6;
    struct Row {
        double year, seconds;
    };
    for (const Row& row : {
             Row{-1000, 25427.68},         // -20 + 32 (28.2)^2
             Row{-500.000002, 17203.68},   // -20 + 32 (23.2)^2
             Row{-500, 17203.65634},       //
             Row{0, 10583.6},              //
             Row{100, 9596.87242},         //
             Row{499.9999988, 5710.13179}, //
             Row{500, 5710.04467},         //
             Row{1000, 1574.2},            //
             Row{1100, 1088.89746},        //
             Row{1599, 120.69732},         //
             Row{1600, 120},               //
             Row{1610, 108.80027},         // 120 - 9.808 - 1.532 + 1000 / 7129
             Row{1699, 8.85539},           //
             Row{1700, 8.83},              //
             Row{1710, 9.96499},           // 8.83 + 1.603 - 0.59285 + 0.13336 - 10000 / 1174000
             Row{1799, 14.17106},          //
             Row{1800, 13.72},             //
             Row{1810, 12.50122},          //
             Row{1859, 7.29784},           //
             Row{1860, 7.62},              //
             Row{1870, 0.94352},           // 7.62 + 5.737 - 25.1754 + 16.80668 - 4.473624 + 0.428864
             Row{1899, -3.97524},          //
             Row{1900, -2.79},             //
             Row{1910, 10.3884},           // -2.79 + 14.94119 - 5.98939 + 6.1966 - 1.97
             Row{1919, 20.80581},          //
             Row{1920, 21.2},              //
             Row{1930, 24.1329},           // 21.2 + 8.4493 - 7.61 + 2.0936
             Row{1940, 24.4074},           // 21.2 + 16.8986 - 30.44 + 16.7488
             Row{1941, 24.77314},          // 29.07 - 3.663 - 81 / 233 - 729 / 2547
             Row{1950, 29.07},             //
             Row{1960, 33.10344},          // 29.07 + 4.07 - 100 / 233 + 1000 / 2547
             Row{1961, 33.57988},          // 45.45 - 14.938 - 196 / 260 + 2744 / 718
             Row{1975, 45.45},             //
             Row{1985, 54.34262},          // 45.45 + 10.67 - 100 / 260 - 1000 / 718
             Row{1986, 54.87774},          //
             Row{2000, 63.86},             //
             Row{2005, 64.67058},          // 62.92 + 1.61085 + 0.139725
             Row{2020, 71.599},            // 62.92 + 6.4434 + 2.2356
             Row{2049, 92.12552},          //
             Row{2050, 93},                // -20 + 32 (2.3)^2 - 0.5628 x 100
             Row{2100, 202.74},            // -20 + 32 (2.8)^2 - 0.5628 x 50
             Row{2150, 328.48},            // -20 + 32 (3.3)^2
             Row{3000, 4435.68},           // -20 + 32 (11.8)^2
         })
        EXPECT_NEAR(seconds_at(row.year + just_after), row.seconds, 3e-5) << row.year;
}

TEST(DeltaT, UsesAPlainFractionalYear) {
    double days = 0;
    moddeltat(2451545, days);
    // y = 2000.0082, so t = 0.0082: 63.86 + 0.3345 t - 0.060374 t^2.
    EXPECT_NEAR(days * 86400, 63.8627, 5e-5);
}

TEST(DeltaT, DropsTheTermOfTheYear2150InThatYear) {
    // -20 + 32 (3.3)^2 = 328.48; just before it the term is next to nothing.
    EXPECT_NEAR(seconds_at(2150), 328.48, 1e-6);
    EXPECT_NEAR(seconds_at(2149.99), 328.48 - 0.5628 * 0.01 - 0.0211, 1e-3);
    // 2100: -20 + 32 (2.8)^2 - 0.5628 x 50 = 202.74
    EXPECT_NEAR(seconds_at(2100), 202.74, 1e-6);
    EXPECT_NEAR(seconds_at(2050), 93.0, 0.1);
    // Far off only the parabola stands: -20 + 32 (11.8)^2
    EXPECT_NEAR(seconds_at(3000), 4435.68, 1e-6);
    EXPECT_NEAR(seconds_at(-1000), 25427.68, 1e-5);
}

TEST(DeltaT, DoesNotLookAtTheTimeReference) {
    double universal = 0;
    moddeltat(2460000.5, universal);
    const TdtSpan dynamical_time(1);
    double dynamical = 0;
    moddeltat(2460000.5, dynamical);
    EXPECT_EQ(universal, dynamical);
}

TEST(TimeReference, IsUniversalTimeOutsideASpan) {
    EXPECT_EQ(tdtinput, 0);
    {
        const TdtSpan outer(1);
        EXPECT_EQ(tdtinput, 1);
        {
            const TdtSpan inner(0);
            EXPECT_EQ(tdtinput, 0);
        }
        EXPECT_EQ(tdtinput, 1);
    }
    EXPECT_EQ(tdtinput, 0);
}

TEST(TimeReference, ComesBackWhenASpanEndsByAFailure) {
    try {
        const TdtSpan span(1);
        throw 1;
    } catch (int) {
        EXPECT_EQ(tdtinput, 0);
    }
}

} // namespace
} // namespace halvane
