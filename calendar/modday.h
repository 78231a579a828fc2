// SPDX-License-Identifier: MIT
#pragma once

#include "base/language.h"

#include <string>

namespace halvane {

/// Name of the weekday.
/// In     value  Julian day of a noon, or of 0 h plus 0.5; an empty text for one that is not whole      [d]
std::string weekday_name(double value, Language language);

/// Name of the civil month; the Arabic names are the Levantine ones.
/// In     month  1 to 12; an empty text for any other
std::string civil_month_name(int month, Language language);

/// The named routine over weekday_name.
/// In     flag  1 Arabic, any other value English
/// Out    name  left as it was when `value` is not whole
void modday(double value, int flag, std::string& name);

/// The named routine over civil_month_name.
/// In     letter  'E' English, any other Arabic
/// Out    name    left as it was for a month number outside 1 to 12
void modmonth(int month, char letter, std::string& name);

} // namespace halvane
