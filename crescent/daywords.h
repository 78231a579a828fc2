// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "calendar/moddateconv.h"

#include <string>

namespace halvane {

/// "Saturday 29 March 2025": the date of a Julian day.
TwinWords day_words(double jd);

/// The clock of a Julian day, to the minute: "13:58".
std::string clock_words(double jd);

/// "Shawwal 1446 AH": the month of a date.
TwinWords month_words(const HijriDate& date);

} // namespace halvane
