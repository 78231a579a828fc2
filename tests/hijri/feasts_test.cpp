// SPDX-License-Identifier: MIT
#include "hijri/feasts.h"

#include <gtest/gtest.h>
#include <set>
#include <string>

namespace halvane {
namespace {

std::string keys_of(int month, int day) {
    std::string keys;
    for (const Feast* const feast : feasts_of({1447, static_cast<double>(month), static_cast<double>(day)}))
        (keys += keys.empty() ? "" : " ") += feast->key;
    return keys;
}

// The dates of docs/hijri.md, by the sources that are named there.
TEST(Feasts, LieOnTheirPublishedDates) {
    EXPECT_EQ(keys_of(1, 1), "new_year");
    EXPECT_EQ(keys_of(1, 9), "tasua");
    EXPECT_EQ(keys_of(1, 10), "ashura");
    EXPECT_EQ(keys_of(3, 12), "mawlid");
    EXPECT_EQ(keys_of(7, 27), "isra_miraj");
    EXPECT_EQ(keys_of(8, 15), "mid_shaban white_days");
    EXPECT_EQ(keys_of(9, 1), "ramadan");
    EXPECT_EQ(keys_of(9, 27), "laylat_al_qadr");
    for (int day = 1; day <= 3; ++day)
        EXPECT_EQ(keys_of(10, day), "eid_al_fitr");
    EXPECT_EQ(keys_of(10, 4), "");
    EXPECT_EQ(keys_of(12, 8), "tarwiyah");
    EXPECT_EQ(keys_of(12, 9), "arafah");
    EXPECT_EQ(keys_of(12, 10), "eid_al_adha");
    for (int day = 11; day <= 12; ++day)
        EXPECT_EQ(keys_of(12, day), "tashriq");
}

TEST(Feasts, HaveTheOddNightsOfTheLastTenOfRamadan) {
    for (int day = 20; day <= 30; ++day) {
        const auto found = feasts_of({1447, 9, static_cast<double>(day)});
        ASSERT_EQ(found.size(), day % 2 == 1 ? 1U : 0U) << day;
        EXPECT_TRUE(found.empty() || found.front()->of_the_night) << day;
    }
}

TEST(Feasts, HaveNoWhiteDayAmongThoseOfTashriq) {
    for (int month = 1; month <= 12; ++month)
        for (int day = 12; day <= 16; ++day) {
            const bool white = day >= 13 && day <= 15 && !(month == 12 && day == 13);
            const bool found = keys_of(month, day).find("white_days") != std::string::npos;
            EXPECT_EQ(found, white) << month << "/" << day;
        }
    EXPECT_EQ(keys_of(12, 13), "tashriq");
}

TEST(Feasts, HaveDistinctKeysAndBothNames) {
    std::set<std::string> keys;
    for (const Feast& feast : feasts()) {
        EXPECT_TRUE(keys.insert(feast.key).second) << feast.key;
        EXPECT_FALSE(std::string(feast.name.english).empty());
        EXPECT_FALSE(std::string(feast.name.arabic).empty());
    }
}

TEST(Feasts, OfAMonthAreRunsOfDays) {
    const std::vector<KeptFeast> kept = feasts_of_month(HijriMonthNumber::of(1447, 12), 29);
    std::string runs;
    for (const KeptFeast& feast : kept)
        runs += std::string(feast.feast->key) + " " + std::to_string(feast.first) + "+" +
                std::to_string(feast.days) + "; ";
    EXPECT_EQ(runs, "tarwiyah 8+1; arafah 9+1; eid_al_adha 10+1; tashriq 11+3; white_days 14+2; ");
}

TEST(Feasts, OfANightTellIt) {
    const auto qadr = feasts_of({1447, 9, 27});
    EXPECT_EQ(words_of(*qadr.front()).english, "Laylat al-Qadr (night before)");
    const auto arafah = feasts_of({1447, 12, 9});
    EXPECT_EQ(words_of(*arafah.front()).english, "Day of Arafah");
}

} // namespace
} // namespace halvane
