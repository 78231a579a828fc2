// SPDX-License-Identifier: MIT
#include "zones/zonefile.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace halvane {
namespace {

std::string big_endian(std::int64_t value, unsigned size) {
    std::string bytes;
    while (size-- > 0)
        bytes += static_cast<char>(static_cast<std::uint64_t>(value) >> 8U * size & 0xFFU);
    return bytes;
}

/// A block with changes between two clocks and a leap second, as RFC 9636 lays it out.
std::string block(const std::vector<std::int64_t>& changes, unsigned time) {
    constexpr std::size_t clocks = 2;
    const std::string letters("CET\0CES\0", 8);
    std::string bytes = "TZif2" + std::string(15, '\0');
    for (const std::size_t count : {clocks, clocks, std::size_t{1}, changes.size(), clocks, letters.size()})
        bytes += big_endian(static_cast<std::int64_t>(count), 4);
    for (const std::int64_t change : changes)
        bytes += big_endian(change, time);
    for (std::size_t change = 0; change < changes.size(); ++change)
        bytes += big_endian(static_cast<std::int64_t>(change % clocks), 1);
    bytes += big_endian(3600, 4) + big_endian(0, 1) + big_endian(0, 1);
    bytes += big_endian(7200, 4) + big_endian(1, 1) + big_endian(4, 1);
    bytes += letters;
    bytes += big_endian(78796800, time) + big_endian(1, 4);
    return bytes + std::string(2 * clocks, '\0');
}

std::string zone_file(const std::vector<std::int64_t>& changes, const std::string& rule) {
    return block({}, 4) + block(changes, 8) + "\n" + rule + "\n";
}

TEST(ZoneFile, EndsWithTheRuleAfterItsLastChange) {
    for (const std::int64_t last :
         {std::int64_t{-5000000000}, std::int64_t{2140045200}, std::int64_t{3703456800}}) {
        const auto found = rule_of_zone_file(zone_file({-9000000000, last}, "CET-1CEST,M3.5.0,M10.5.0/3"));
        ASSERT_TRUE(found) << last;
        EXPECT_EQ(found->last_change, last);
        constexpr std::int64_t july_2023 = 1688169600;
        EXPECT_EQ(found->rule.offset_at_second(july_2023), 7200);
    }
}

TEST(ZoneFile, WithoutChangesHasItsRuleAlways) {
    const auto found = rule_of_zone_file(zone_file({}, "<+03>-3"));
    ASSERT_TRUE(found);
    EXPECT_EQ(found->last_change, std::numeric_limits<std::int64_t>::min());
}

TEST(ZoneFile, HasTheFirstOfItsClocksBeforeItsChanges) {
    const auto clocks = clocks_of_zone_file(zone_file({-9000000000, 5, 7}, "<+03>-3"));
    ASSERT_TRUE(clocks);
    ASSERT_EQ(clocks->size(), 4U);
    constexpr std::int64_t begins[]{std::numeric_limits<std::int64_t>::min(), -9000000000, 5, 7};
    constexpr int offsets[]{3600, 3600, 7200, 3600};
    for (std::size_t i = 0; i < clocks->size(); ++i) {
        EXPECT_EQ((*clocks)[i].begin, begins[i]);
        EXPECT_EQ((*clocks)[i].offset, offsets[i]);
    }
}

TEST(ZoneFile, OfAnotherFormHasNoClocks) {
    EXPECT_FALSE(clocks_of_zone_file(zone_file({7, 5}, ""))) << "changes out of order";
    std::string bytes = zone_file({5}, "");
    constexpr std::size_t second_block = 44 + 2 * 6 + 8 + 8 + 4;
    bytes[second_block + 44 + 8] = 2;
    EXPECT_FALSE(clocks_of_zone_file(bytes)) << "a clock that is not there";
    const std::string whole = zone_file({1, 2, 3}, "");
    for (std::size_t size = 0; size < whole.size() - 2; ++size)
        EXPECT_FALSE(clocks_of_zone_file(whole.substr(0, size))) << size;
}

TEST(ZoneFile, OfAnotherFormHasNoRule) {
    const std::string whole = zone_file({1, 2, 3}, "CET-1CEST,M3.5.0,M10.5.0/3");
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_FALSE(rule_of_zone_file(whole.substr(0, size))) << size;
    EXPECT_FALSE(rule_of_zone_file(block({1, 2}, 4))) << "the first version";
    EXPECT_FALSE(rule_of_zone_file(zone_file({1}, ""))) << "no rule is known";
    EXPECT_FALSE(rule_of_zone_file(zone_file({1}, "CET")));
    std::string endless = whole;
    endless.replace(20, 24, std::string(24, '\xFF'));
    EXPECT_FALSE(rule_of_zone_file(endless)) << "counts beyond the file";
}

} // namespace
} // namespace halvane
