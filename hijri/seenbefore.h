// SPDX-License-Identifier: MIT
#pragma once

#include "hijri/hijrirules.h"
#include "timetable/inivalues.h"

#include <array>
#include <optional>
#include <span>
#include <string_view>

namespace halvane {

inline constexpr std::array<Word<SeenBefore>, 3> seen_before_words{
    {{"any-time", SeenBefore::any_time}, {"midnight", SeenBefore::midnight}, {"fajer", SeenBefore::fajer}}};

/// "any-time", "midnight", "fajer": the name in files and on the command line.
const char* key_of(SeenBefore before);
std::optional<SeenBefore> seen_before_of(std::string_view key);
/// Every one, in the order of the lists.
std::span<const SeenBefore> seen_befores();

} // namespace halvane
