// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "timetable/profile.h"

#include <string>

namespace halvane {

// Digits as entries of a list.
inline constexpr TwinText western_entry{"0 1 2 3", "\u20660 1 2 3\u2069"};
inline constexpr TwinText arabic_entry{"٠ ١ ٢ ٣", "\u2066٠ ١ ٢ ٣\u2069"};

/// A text with Arabic-Indic digits in the place of 0 to 9.
std::string arabic_digits(const std::string& text);

/// Words as a page of such digits has them: the English ones are as they are.
TwinWords in_digits(TwinWords words, PageDigits digits);

} // namespace halvane
