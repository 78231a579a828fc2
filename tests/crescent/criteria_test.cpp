// SPDX-License-Identifier: MIT
#include "crescent/criteria.h"

#include "crescent/notes.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>
#include <optional>

namespace halvane {
namespace {

using enum VisibilityClass;

double below(double value) {
    return std::nextafter(value, -std::numeric_limits<double>::infinity());
}

double above(double value) {
    return std::nextafter(value, std::numeric_limits<double>::infinity());
}

TEST(VeskCriteria, BandsHoldTheirLowerEdge) {
    EXPECT_EQ(vesk_class(5.65), easily_visible);
    EXPECT_EQ(vesk_class(below(5.65)), second_band);
    EXPECT_EQ(vesk_class(2), second_band);
    EXPECT_EQ(vesk_class(below(2)), optical_aid);
    EXPECT_EQ(vesk_class(-0.97), optical_aid);
    EXPECT_EQ(vesk_class(below(-0.97)), not_possible);
    EXPECT_EQ(vesk_class(30), easily_visible);
    EXPECT_EQ(vesk_class(-30), not_possible);
}

TEST(VeskCriteria, EachBandHasItsSentence) {
    EXPECT_STREQ(vesk_sentence(5.65), "Easily Visible By Naked Eye.");
    EXPECT_STREQ(vesk_sentence(2), "Visible With Optical Aid, Could Be Seen By Naked Eye.");
    EXPECT_STREQ(vesk_sentence(-0.97), "Visible With Optical Aid Only.");
    EXPECT_STREQ(vesk_sentence(below(-0.97)), "Not Visible Even With Optical Aid.");
}

TEST(VeskCriteria, ValueIsTheHeightAboveTheLine) {
    // By hand: W = 0.5' gives -0.012725 + 0.182975 - 3.1613 + 7.1651 = 4.17405.
    EXPECT_NEAR(vesk_value(10, 0.5), 5.82595, 1e-12);
    // W = 2': -0.8144 + 2.9276 - 12.6452 + 7.1651 = -3.3669.
    EXPECT_NEAR(vesk_value(0, 2), 3.3669, 1e-12);
    EXPECT_NEAR(vesk_value(7.1651, 0), 0, 1e-15);
}

TEST(YallopCriterion, BandsHoldTheirUpperEdge) {
    EXPECT_EQ(yallop_class(0.216), third_band);
    EXPECT_EQ(yallop_class(above(0.216)), easily_visible);
    EXPECT_EQ(yallop_class(-0.014), second_band);
    EXPECT_EQ(yallop_class(above(-0.014)), third_band);
    EXPECT_EQ(yallop_class(-0.16), optical_aid);
    EXPECT_EQ(yallop_class(above(-0.16)), second_band);
    EXPECT_EQ(yallop_class(above(-0.232)), optical_aid);
    EXPECT_EQ(yallop_class(below(-0.232)), not_possible);
}

TEST(YallopCriterion, ExactlyTheLowestEdgeFallsInNoBand) {
    EXPECT_EQ(yallop_class(-0.232), std::nullopt);
}

/// Schoch's limits of visibility as NAO Technical Note 69 quotes them, with the semidiameter of 15' that the
/// note takes for them: the line q = 0 was fitted to them.
TEST(YallopCriterion, ValueIsZeroOnSchochsLine) {
    struct Limit {
        double daz, arcv;
    };
    constexpr double degree = std::numbers::pi / 180;
    for (const Limit& limit : std::array<Limit, 5>{{{0, 10.4}, {5, 10.0}, {10, 9.3}, {15, 8.0}, {20, 6.2}}}) {
        const double width = 15 * (1 - std::cos(limit.arcv * degree) * std::cos(limit.daz * degree));
        EXPECT_NEAR(yallop_value(limit.arcv, width), 0, 0.011) << "DAZ " << limit.daz;
    }
}

TEST(YallopCriterion, ValueIsATenthOfTheHeightAboveTheLine) {
    // By hand: W = 0.3' gives 11.8371 - 1.89678 + 0.065871 - 0.0027486 = 10.0034424.
    EXPECT_NEAR(yallop_value(10, 0.3), -0.00034424, 1e-12);
    EXPECT_NEAR(yallop_value(11.8371, 0), 0, 1e-15);
}

TEST(SaaoCriterion, LinesBelongToTheBandAboveThem) {
    EXPECT_EQ(saao_class(8.1912, 0), easily_visible);
    EXPECT_EQ(saao_class(below(8.1912), 0), optical_aid);
    EXPECT_EQ(saao_class(6.2912, 0), optical_aid);
    EXPECT_EQ(saao_class(below(6.2912), 0), not_possible);
}

TEST(SaaoCriterion, LinesSinkWithTheDifferenceOfAzimuth) {
    // By hand at DAZ 10: 0.4 - 1.57 - 0.145 = -1.315, so the lines stand at 6.8762 and 4.9762.
    EXPECT_EQ(saao_class(6.8763, 10), easily_visible);
    EXPECT_EQ(saao_class(6.8761, 10), optical_aid);
    EXPECT_EQ(saao_class(4.9763, 10), optical_aid);
    EXPECT_EQ(saao_class(4.9761, 10), not_possible);
}

/// Meeus, Astronomical Algorithms, example 16.a: a limb seen at 30' stands at 1.246' without air; the formula
/// from true altitudes agrees to 4".
TEST(SaaoCriterion, LowerLimbIsRaisedByRefraction) {
    constexpr double semidiameter = 0.25;
    EXPECT_NEAR(apparent_lower_limb(1.246 / 60 + semidiameter, semidiameter), 0.5, 4.0 / 3600);
}

TEST(SaaoCriterion, LowerLimbIsANumberAtThePoleOfTheFormula) {
    EXPECT_EQ(apparent_lower_limb(-5.11, 0), -5.11);
    EXPECT_EQ(saao_class(apparent_lower_limb(-5.11, 0), 0), not_possible);
}

struct NoteCase {
    bool new_crescent;
    double lag, age;
    const char *first, *second;
};

class Notes : public ::testing::TestWithParam<NoteCase> {};

TEST_P(Notes, StandAloneAndWordForWord) {
    const NoteCase& c = GetParam();
    const auto notes = impossibility_notes(c.new_crescent, c.lag, c.age);
    ASSERT_EQ(notes.size(), 1U);
    EXPECT_STREQ(notes[0].first_line, c.first);
    EXPECT_STREQ(notes[0].second_line, c.second);
}

INSTANTIATE_TEST_SUITE_P(
    AllSix, Notes,
    ::testing::Values(
        NoteCase{true, -0.1, -0.1,
                 "- Note: It's Impossible To See The New Crescent Today, Because The Moon Sets",
                 "        Before The Sun, and The Conjunction Occurs After Sunset."},
        NoteCase{true, 0.1, -0.1,
                 "- Note: It's Impossible To see The New Crescent Today, Because The Conjunction",
                 "        Occurs After Sunset."},
        NoteCase{true, -0.1, 0.1,
                 "- Note: It's Impossible To see The New Crescent Today, Because The Moon Sets ",
                 "        Before The Sun."},
        NoteCase{false, -0.1, 0.1,
                 "- Note: It's Impossible To See The Old Crescent Today, Because The Moon Rises",
                 "        After The Sun, and The Conjunction Occurs Before Moonrise."},
        NoteCase{false, 0.1, 0.1,
                 "- Note: It's Impossible To see The Old Crescent Today, Because The Conjunction",
                 "        Occurs Before Moonrise."},
        NoteCase{false, -0.1, -0.1,
                 "- Note: It's Impossible To see The Old Crescent Today, Because The Moon Rises ",
                 "        After The Sun."}));

TEST(NoNote, StandsForAPossibleCrescentNorAtTheVeryEdge) {
    EXPECT_TRUE(impossibility_notes(true, 0.1, 0.1).empty());
    EXPECT_TRUE(impossibility_notes(false, 0.1, -0.1).empty());
    EXPECT_TRUE(impossibility_notes(true, 0, 0).empty());
    EXPECT_TRUE(impossibility_notes(false, 0, 0).empty());
}

} // namespace
} // namespace halvane
