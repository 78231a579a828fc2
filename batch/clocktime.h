// SPDX-License-Identifier: MIT
#pragma once

#include "base/machinetime.h"

#include <optional>
#include <string_view>

namespace halvane {

/// Reads the text "YYYY-MM-DDTHH:MM" of a date and clock, with "-" before a year before 0. Months are 1 to
/// 12, days 1 to 31 in every month, hours 0 to 23, minutes 0 to 59. Returns nothing for any other text.
std::optional<MachineTime> clock_time(std::string_view text);

} // namespace halvane
