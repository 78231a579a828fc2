// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace halvane {

/// Name of the weekday.
/// In     value  Julian day of a noon, or of 0 h plus 0.5; a whole number      [d]
///        flag   1 Arabic, any other value English
/// Out    name   left as it was when `value` is not whole; returned as an empty text then
void modday(double value, int flag, std::string& name);
std::string modday(double value, int flag);

/// Name of the civil month; the Arabic names are the Levantine ones.
/// In     month   1 to 12
///        letter  'E' English, any other Arabic
/// Out    name    left as it was for another month number; returned as an empty text then
void modmonth(int month, char letter, std::string& name);
std::string modmonth(int month, char letter);

} // namespace halvane
