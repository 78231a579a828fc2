// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace halvane {

/// How far a clock is ahead of Universal Time: "UTC+3", "UTC-9:30", "UTC+0"; to the minute.
/// In     hours  east positive                                                                  [h]
std::string zone_text(double hours);

} // namespace halvane
