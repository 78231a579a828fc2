// SPDX-License-Identifier: MIT
#include "crescent/publishedcriteria.h"

#include "crescent/criteria.h"

#include <array>
#include <gtest/gtest.h>

namespace halvane {
namespace {

struct Column {
    double daz, arcv;
};

/// Yallop, NAO Technical Note 69 (1997), reprints both tables.
TEST(MaunderLine, GoesThroughHisTable) {
    for (const Column& column : std::array<Column, 5>{{{0, 11}, {5, 10.5}, {10, 9.5}, {15, 8}, {20, 6}}})
        EXPECT_NEAR(maunder_least_arcv(column.daz), column.arcv, 1e-12) << column.daz;
}

TEST(SchochLine, GoesThroughTheIndianTable) {
    // A parabola by least squares, which leaves 0.063 at 5.
    for (const Column& column : std::array<Column, 5>{{{0, 10.4}, {5, 10}, {10, 9.3}, {15, 8}, {20, 6.2}}})
        EXPECT_NEAR(schoch_least_arcv(column.daz), column.arcv, 0.07) << column.daz;
}

struct WidthPoint {
    double width, arcv;
};

/// Figure 9 of Bruin, as Yallop reads it; his cubic leaves 0.18 at 0.5'.
TEST(BruinLine, GoesAlongHisFigure) {
    for (const WidthPoint& point :
         std::array<WidthPoint, 6>{{{0.3, 10}, {0.5, 8.4}, {0.7, 7.5}, {1, 6.4}, {2, 4.7}, {3, 4.3}}})
        EXPECT_NEAR(bruin_least_arcv(point.width), point.arcv, 0.18) << point.width;
}

/// By hand: 12.4023 - 9.4878 W + 3.9512 W^2 - 0.5632 W^3.
TEST(BruinLine, IsTheCubicUpToItsEnd) {
    for (const WidthPoint& point : std::array<WidthPoint, 3>{{{0.5, 8.5758}, {1, 6.3025}, {3, 4.2933}}})
        EXPECT_NEAR(bruin_least_arcv(point.width), point.arcv, 1e-4) << point.width;
    EXPECT_EQ(bruin_least_arcv(4), bruin_least_arcv(3));
}

TEST(BruinLine, TakesAConstantSemidiameter) {
    // By hand: 15' (1 - cos 60) = 7.5'.
    EXPECT_NEAR(bruin_width(60), 7.5, 1e-12);
}

TEST(IlyasLine, EndsAtTwentyDegrees) {
    // By hand at 10: 10.2833 - 0.027357 - 1.36649 + 0.21192 = 9.101373.
    ASSERT_TRUE(ilyas_least_arcv(10));
    EXPECT_NEAR(*ilyas_least_arcv(10), 9.101373, 1e-12);
    EXPECT_TRUE(ilyas_least_arcv(20));
    EXPECT_FALSE(ilyas_least_arcv(20.01));
}

TEST(SaaoLines, GoThroughThePublishedColumns) {
    struct Lines {
        double daz, impossible_below, probable_from;
    };
    for (const Lines& lines : std::array<Lines, 5>{
             {{0, 6.3, 8.2}, {5, 5.9, 7.8}, {10, 4.9, 6.8}, {15, 3.8, 5.7}, {20, 2.6, 4.5}}}) {
        ASSERT_TRUE(saao_least_limb(lines.daz));
        EXPECT_NEAR(*saao_least_limb(lines.daz), lines.probable_from, 1e-12);
        EXPECT_NEAR(*saao_least_limb(lines.daz) - saao_aid_span, lines.impossible_below, 1e-12);
    }
    // Half-way between two columns, and behind the last.
    EXPECT_NEAR(*saao_least_limb(12.5), 6.25, 1e-12);
    EXPECT_FALSE(saao_least_limb(20.01));
}

TEST(SaaoValue, IsTheHeightAboveTheCubic) {
    // By hand at DAZ 10: 0.4 - 1.57 - 0.145 = -1.315.
    EXPECT_NEAR(saao_value(7, 10), 8.315, 1e-12);
}

/// Yallop's own sighting No. 208: parallax 53.93', altitude 5.928, elongation 15.683.
TEST(YallopWidth, IsThatOfAnExampleByHand) {
    // SD = 0.27245 * 53.93 = 14.6932'; SD' = 14.6932 (1 + 0.10328 * 0.015687) = 14.7170';
    // W' = 14.7170 (1 - 0.962770) = 0.5479'.
    EXPECT_NEAR(yallop_width(53.93 / 60, 5.928, 15.683), 0.5479, 1e-4);
    EXPECT_NEAR(yallop_value(12.095, 0.5479), 0.3519, 1e-4);
}

} // namespace
} // namespace halvane
