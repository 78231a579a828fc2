// SPDX-License-Identifier: MIT
#include "crescent/criteria.h"

#include "crescent/maptexts.h"

#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <sstream>
#include <string>

namespace halvane {
namespace {

/// What a measure gives with the Moon up to 40 degrees high and up to 40 degrees beside the Sun, which stands
/// at the horizon or up to 8 degrees below it, for crescents of any width that they can have there.
std::set<VisibilityClass> classes_of(const CriterionRow& criterion) {
    std::set<VisibilityClass> classes;
    CrescentQuantities q;
    q.semidiameter = 0.26;
    for (q.moon_altitude = 0; q.moon_altitude <= 40; q.moon_altitude += 0.25)
        for (q.sun_altitude = -8; q.sun_altitude <= 0; q.sun_altitude += 0.5)
            for (q.moon_azimuth = -40; q.moon_azimuth <= 40; q.moon_azimuth += 2)
                for (const double minutes : {0.05, 0.1, 0.2, 0.4, 0.8, 1.6}) {
                    q.width = minutes / 60;
                    classes.insert(criterion.measure(q));
                }
    return classes;
}

TEST(CriteriaTable, TheClassesOfAMeasureAreThoseOfItsLegend) {
    for (const CriterionRow& criterion : criteria()) {
        std::set<VisibilityClass> told{VisibilityClass::not_possible};
        for (const LegendLine& line : criterion.lines())
            told.insert(line.visibility);
        EXPECT_EQ(classes_of(criterion), told) << criterion.key;
    }
}

TEST(CriteriaTable, AKeyFindsItsRowAndNothingElseDoes) {
    for (const CriterionRow& criterion : criteria()) {
        const std::optional<Criterion> found = criterion_of(criterion.key);
        ASSERT_TRUE(found) << criterion.key;
        EXPECT_EQ(&row_of(*found), &criterion);
    }
    EXPECT_EQ(criterion_of("yallop"), Criterion::yallop);
    for (const char* other : {"", "Vesk", "ves", "vesky", " vesk"})
        EXPECT_EQ(criterion_of(other), std::nullopt) << other;
}

TEST(CriteriaTable, MomentsAreThoseOfThePublishedCriteria) {
    EXPECT_EQ(row_of(Criterion::vesk).moment, ObservationMoment::best_time);
    EXPECT_EQ(row_of(Criterion::yallop).moment, ObservationMoment::best_time);
    EXPECT_EQ(row_of(Criterion::saao).moment, ObservationMoment::sun_event);
}

TEST(CriteriaTable, MeasuresAreTheirFormulasOfTheQuantities) {
    CrescentQuantities q;
    q.moon_altitude = 9;
    q.sun_altitude = -1;
    q.moon_azimuth = 280;
    q.sun_azimuth = 290;
    q.semidiameter = 0.25;
    q.width = 0.5 / 60;
    // By hand with ARCV 10 and W 0.5': V is 5.826, q is 0.1154; the limb at 8.75 and its refraction stand
    // above the line at 6.876 that belongs to a DAZ of 10.
    EXPECT_EQ(row_of(Criterion::vesk).measure(q), VisibilityClass::easily_visible);
    EXPECT_EQ(row_of(Criterion::yallop).measure(q), VisibilityClass::third_band);
    EXPECT_EQ(row_of(Criterion::saao).measure(q), VisibilityClass::easily_visible);
    q.moon_altitude = 5; // ARCV 6: V is 1.826, q is -0.2846; the limb at 4.75 and 0.17 of refraction
    EXPECT_EQ(row_of(Criterion::vesk).measure(q), VisibilityClass::optical_aid);
    EXPECT_EQ(row_of(Criterion::yallop).measure(q), VisibilityClass::not_possible);
    EXPECT_EQ(row_of(Criterion::saao).measure(q), VisibilityClass::not_possible);
}

/// The user's guide has to be told of a new criterion too.
TEST(CriteriaTable, TheGuideNamesEveryCriterionInBothLanguages) {
    std::ifstream file(HALVANE_DATA "/help.txt", std::ios::binary);
    std::stringstream guide;
    guide << file.rdbuf();
    ASSERT_FALSE(guide.str().empty());
    for (const CriterionRow& criterion : criteria())
        for (const Language language : languages) {
            const std::string name = criterion.name.in(language);
            EXPECT_NE(guide.str().find(name + ":"), std::string::npos) << name;
        }
}

} // namespace
} // namespace halvane
