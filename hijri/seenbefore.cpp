// SPDX-License-Identifier: MIT
#include "hijri/seenbefore.h"

namespace halvane {
namespace {

constexpr std::array<SeenBefore, 3> befores{SeenBefore::any_time, SeenBefore::midnight, SeenBefore::fajer};

} // namespace

const char* key_of(SeenBefore before) {
    for (const Word<SeenBefore>& word : seen_before_words)
        if (word.value == before)
            return word.word;
    return "";
}

std::optional<SeenBefore> seen_before_of(std::string_view key) {
    SeenBefore before{};
    if (take_word(before, key, seen_before_words).empty())
        return before;
    return std::nullopt;
}

std::span<const SeenBefore> seen_befores() {
    return befores;
}

} // namespace halvane
