// SPDX-License-Identifier: MIT
#include "crescent/criteriacatalogue.h"
#include "tests/crescent/crescentfixture.h"
#include "tools/ratecriteria/sightings.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <utility>

namespace halvane {
namespace {

/// Table 4 of Yallop, NAO Technical Note 69 (1997): 60 of his sightings with what he printed of them.
class YallopSightings : public CrescentTest {
protected:
    double printed(const CsvRow& row, const char* heading) const { return number(table, row, heading); }

    /// The sky of his best time, by his conjunction and his age.
    CrescentEvening evening(const CsvRow& row) const {
        const Observer observer = observer_at(printed(row, "longitude"), printed(row, "latitude"), 0);
        CrescentEvening made;
        made.at_best_time = crescent_sky(named_ephemeris(), observer,
                                         printed(row, "conjunction_jd") + printed(row, "age_h") / 24);
        return made;
    }

    const CsvRow& row_of(std::string_view number) const {
        return *std::find_if(table.rows.begin(), table.rows.end(),
                             [&](const CsvRow& row) { return field(table, row, "no") == number; });
    }

    const CsvTable table = read_told_table(HALVANE_TESTS "/crescent/yallopsightings.csv");
    const CataloguedCriterion& yallop = *catalogued_criterion("yallop-1997");
};

TEST_F(YallopSightings, AreSixty) {
    EXPECT_EQ(table.rows.size(), 60U);
}

TEST_F(YallopSightings, HaveHisValues) {
    for (const CsvRow& row : table.rows) {
        const double q = criterion_value(yallop, evening(row)).value();
        EXPECT_NEAR(q, printed(row, "q"), 0.015) << "No. " << field(table, row, "no");
    }
}

TEST_F(YallopSightings, FallIntoHisClasses) {
    for (const CsvRow& row : table.rows) {
        // Printed in B with q = -0.014, which his own limits put into C.
        if (field(table, row, "no") == "252")
            continue;
        const double q = criterion_value(yallop, evening(row)).value();
        EXPECT_EQ(std::string(1, "FEDCBA"[class_of_value(yallop, q)]), field(table, row, "class"))
            << "No. " << field(table, row, "no") << ", q " << q;
    }
}

TEST_F(YallopSightings, HaveHisQuantities) {
    for (const CsvRow& row : table.rows) {
        const CrescentSky sky = evening(row).at_best_time;
        const CrescentQuantities& q = sky.geocentric;
        // One printed decimal, and 0.05 h of the Moon's way.
        constexpr double half_digit = 0.05;
        constexpr double way = 0.03;
        EXPECT_NEAR(q.elongation, printed(row, "arcl"), half_digit + way) << field(table, row, "no");
        EXPECT_NEAR(sky.parallax * 60, printed(row, "parallax"), half_digit + way) << field(table, row, "no");
    }
}

/// The topocentric elongation that Danjon's limit is put to, computed with the Swiss Ephemeris.
TEST_F(YallopSightings, StandOnBothSidesOfDanjonsLimit) {
    const CataloguedCriterion& danjon = *catalogued_criterion("danjon");
    for (const auto& [number, elongation] : {std::pair{"278", 7.56}, std::pair{"103", 5.31}}) {
        const CsvRow& row = row_of(number);
        EXPECT_NEAR(criterion_value(danjon, evening(row)).value(), elongation - 7, 0.03) << number;
    }
}

} // namespace
} // namespace halvane
