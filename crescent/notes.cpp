// SPDX-License-Identifier: MIT
#include "crescent/notes.h"

namespace halvane {
namespace {

constexpr ImpossibilityNote new_both{
    "- Note: It's Impossible To See The New Crescent Today, Because The Moon Sets",
    "        Before The Sun, and The Conjunction Occurs After Sunset."};
constexpr ImpossibilityNote new_conjunction{
    "- Note: It's Impossible To see The New Crescent Today, Because The Conjunction",
    "        Occurs After Sunset."};
constexpr ImpossibilityNote new_lag{
    "- Note: It's Impossible To see The New Crescent Today, Because The Moon Sets ",
    "        Before The Sun."};
constexpr ImpossibilityNote old_both{
    "- Note: It's Impossible To See The Old Crescent Today, Because The Moon Rises",
    "        After The Sun, and The Conjunction Occurs Before Moonrise."};
constexpr ImpossibilityNote old_conjunction{
    "- Note: It's Impossible To see The Old Crescent Today, Because The Conjunction",
    "        Occurs Before Moonrise."};
constexpr ImpossibilityNote old_lag{
    "- Note: It's Impossible To see The Old Crescent Today, Because The Moon Rises ",
    "        After The Sun."};

} // namespace

std::vector<ImpossibilityNote> impossibility_notes(bool new_crescent, double lag, double age) {
    const bool behind = lag < 0;
    const bool conjunction = new_crescent ? age < 0 : age > 0;
    if (behind && conjunction)
        return {new_crescent ? new_both : old_both};
    if (conjunction)
        return {new_crescent ? new_conjunction : old_conjunction};
    if (behind)
        return {new_crescent ? new_lag : old_lag};
    return {};
}

} // namespace halvane
