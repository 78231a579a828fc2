// SPDX-License-Identifier: MIT
#pragma once

#include <ctime>

namespace halvane {

/// The date and time that the machine's clock shows now, in its own time zone.
std::tm local_clock();

} // namespace halvane
