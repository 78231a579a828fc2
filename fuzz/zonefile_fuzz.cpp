// SPDX-License-Identifier: MIT
#include "fuzz/require.h"
#include "zones/zonefile.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>

namespace {

using halvane::ZoneRule;
using halvane::fuzz::require;

/// A rule has at most two offsets, each of at most 168 hours.
void check_rule(const ZoneRule& rule) {
    constexpr int farthest = 168 * 3600;
    constexpr std::int64_t day = 86400;
    constexpr std::int64_t start_of_2024 = 1704067200;
    const int first = rule.offset_at_second(start_of_2024);
    int second = first;
    for (std::int64_t at = start_of_2024; at < start_of_2024 + 400 * day; at += day) {
        const int offset = rule.offset_at_second(at);
        require(-farthest <= offset && offset <= farthest);
        require(offset == first || offset == second || second == first);
        second = offset == first ? second : offset;
    }
    rule.offset_at_second(std::numeric_limits<std::int64_t>::min());
    rule.offset_at_second(std::numeric_limits<std::int64_t>::max());
}

} // namespace

/// Any bytes as a zone file, and as a rule of its last line.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    if (const auto rule = ZoneRule::read(bytes))
        check_rule(*rule);
    if (const auto clocks = halvane::clocks_of_zone_file(bytes))
        for (std::size_t i = 1; i < clocks->size(); ++i)
            require((*clocks)[i - 1].begin < (*clocks)[i].begin);
    if (const auto found = halvane::rule_of_zone_file(bytes))
        check_rule(found->rule);
    return 0;
}
