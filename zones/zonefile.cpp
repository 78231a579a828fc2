// SPDX-License-Identifier: MIT
#include "zones/zonefile.h"

#include <limits>

namespace halvane {
namespace {

constexpr std::size_t head_size = 44;

std::int64_t big_endian(std::string_view bytes) {
    std::uint64_t value = 0;
    for (const char byte : bytes)
        value = value << 8U | static_cast<unsigned char>(byte);
    return static_cast<std::int64_t>(value);
}

/// What a block counts in its head, in the order of the file.
enum Counted { universal_marks, standard_marks, leap_seconds, changes, clocks, letters };

std::size_t count_of(std::string_view block, Counted what) {
    constexpr std::size_t first = 20;
    constexpr std::size_t count_size = 4;
    return static_cast<std::size_t>(big_endian(block.substr(first + what * count_size, count_size)));
}

/// Bytes of the block that `bytes` start with, whose times have `time` bytes each; nothing when it is not
/// whole.
std::optional<std::size_t> block_length(std::string_view bytes, std::size_t time) {
    if (bytes.size() < head_size || !bytes.starts_with("TZif"))
        return std::nullopt;
    const auto count = [bytes](Counted what) { return count_of(bytes, what); };
    constexpr std::size_t clock_size = 6;
    const std::size_t length = head_size + count(changes) * (time + 1) + count(clocks) * clock_size +
                               count(letters) + count(leap_seconds) * (time + 4) + count(standard_marks) +
                               count(universal_marks);
    return length <= bytes.size() ? std::optional(length) : std::nullopt;
}

/// The last change of a block whose times have eight bytes.
std::int64_t last_change(std::string_view block) {
    constexpr std::size_t time = 8;
    const std::size_t count = count_of(block, changes);
    return count == 0 ? std::numeric_limits<std::int64_t>::min()
                      : big_endian(block.substr(head_size + (count - 1) * time, time));
}

/// The second block of the file and what follows it; the first one, whose times have four bytes, is for
/// readers of the first version. Nothing when they are not whole.
struct SecondBlock {
    std::string_view bytes;
    std::size_t length;
};
std::optional<SecondBlock> second_block(std::string_view bytes) {
    const std::optional<std::size_t> first = block_length(bytes, 4);
    if (!first)
        return std::nullopt;
    bytes.remove_prefix(*first);
    const std::optional<std::size_t> second = block_length(bytes, 8);
    return second ? std::optional(SecondBlock{bytes, *second}) : std::nullopt;
}

} // namespace

std::optional<std::vector<ZoneClock>> clocks_of_zone_file(std::string_view bytes) {
    const std::optional<SecondBlock> block = second_block(bytes);
    if (!block)
        return std::nullopt;
    constexpr std::size_t time = 8;
    constexpr std::size_t clock_size = 6;
    const std::size_t change_count = count_of(block->bytes, changes);
    const std::size_t clock_count = count_of(block->bytes, clocks);
    const std::string_view times = block->bytes.substr(head_size, change_count * time);
    const std::string_view kinds = block->bytes.substr(head_size + times.size(), change_count);
    const std::string_view listed = block->bytes.substr(head_size + times.size() + kinds.size());
    const auto offset_of = [listed](std::size_t kind) {
        constexpr std::size_t offset_size = 4;
        return static_cast<int>(
            static_cast<std::int32_t>(big_endian(listed.substr(kind * clock_size, offset_size))));
    };
    if (clock_count == 0)
        return std::nullopt;
    std::vector<ZoneClock> found{{std::numeric_limits<std::int64_t>::min(), offset_of(0)}};
    for (std::size_t i = 0; i < change_count; ++i) {
        const auto kind = static_cast<unsigned char>(kinds[i]);
        const std::int64_t begin = big_endian(times.substr(i * time, time));
        if (kind >= clock_count || (i > 0 && begin <= found.back().begin))
            return std::nullopt;
        found.push_back({begin, offset_of(kind)});
    }
    return found;
}

std::optional<RuleOfFile> rule_of_zone_file(std::string_view bytes) {
    const std::optional<SecondBlock> block = second_block(bytes);
    if (!block)
        return std::nullopt;
    const std::string_view line = block->bytes.substr(block->length);
    if (line.size() < 2 || line.front() != '\n' || line.back() != '\n')
        return std::nullopt;
    const std::optional<ZoneRule> rule = ZoneRule::read(line.substr(1, line.size() - 2));
    return rule ? std::optional(RuleOfFile{*rule, last_change(block->bytes)}) : std::nullopt;
}

} // namespace halvane
