// SPDX-License-Identifier: MIT
#include "tests/crescent/crescentfixture.h"
#include "tests/support/bytes.h"
#include "tools/ratecriteria/criteriarates.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>

namespace halvane {
namespace {

/// Observations of Allawi, Computation 10, 186 (2022).
class AllawiSightings : public CrescentTest {
protected:
    const std::vector<Sighting> sightings =
        read_sightings(HALVANE_TESTS "/../tools/ratecriteria/sightings.csv");
};

TEST_F(AllawiSightings, AreAHundred) {
    SeenCounts counts{};
    for (const Sighting& sighting : sightings)
        ++counts[static_cast<std::size_t>(sighting.seen)];
    EXPECT_EQ(counts, (SeenCounts{26, 32, 42}));
}

TEST_F(AllawiSightings, HaveHisElongations) {
    for (const Sighting& sighting : sightings) {
        const Observer observer = observer_at(sighting.longitude, sighting.latitude, 0);
        const CrescentQuantities q =
            crescent_sky(named_ephemeris(), observer, sighting.universal).topocentric;
        // To the limb; two printed decimals and places to a tenth of a degree.
        EXPECT_NEAR(q.elongation - q.semidiameter, sighting.elongation, 0.02) << sighting.row;
    }
}

TEST_F(AllawiSightings, BelongToTheEveningTheyWereMadeIn) {
    for (const Sighting& sighting : sightings) {
        const CrescentEvening evening = evening_of(named_ephemeris(), sighting);
        EXPECT_LT(std::abs(evening.sun_event - sighting.universal), 0.1) << sighting.row;
        EXPECT_GT(evening.lag(), 0) << sighting.row;
        EXPECT_GT(evening.age(evening.sun_event), 0) << sighting.row;
    }
}

TEST_F(AllawiSightings, AreEachCountedOnce) {
    for (const CriterionRates& rates : rate_criteria(named_ephemeris(), sightings)) {
        SeenCounts sum = rates.unanswered;
        for (const SeenCounts& counts : rates.classes)
            std::transform(sum.begin(), sum.end(), counts.begin(), sum.begin(), std::plus<>());
        EXPECT_EQ(sum, (SeenCounts{26, 32, 42})) << rates.criterion->key;
    }
}

TEST_F(AllawiSightings, HaveTheirRatesInTheDocument) {
    const std::string table = markdown_table(rate_criteria(named_ephemeris(), sightings));
    EXPECT_NE(bytes_of(HALVANE_TESTS "/../docs/criteria.md").find(table), std::string::npos)
        << "docs/criteria.md must hold\n"
        << table;
}

} // namespace
} // namespace halvane
