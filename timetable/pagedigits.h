// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "timetable/profile.h"

#include <string>

namespace halvane {

/// A text with Arabic-Indic digits in the place of 0 to 9.
std::string arabic_digits(const std::string& text);

/// Words as a page of such digits has them: the English ones are as they are.
TwinWords in_digits(TwinWords words, PageDigits digits);

} // namespace halvane
