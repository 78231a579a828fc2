// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

namespace halvane {

/// Seconds since 0 h of a clock text "hh:mm" or "hh:mm:ss" ("24:00" too); nothing for a word such as "----".
std::optional<int> seconds_of_clock_text(std::string_view text);

} // namespace halvane
