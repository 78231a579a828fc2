#pragma once

#include <string>

namespace halvane {

/// Name of the weekday.
/// In     value  Julian day of a noon, or of 0 h plus 0.5; a whole number      [d]
///        flag   1 Arabic, any other value English
/// Out    name   left as it was when `value` is not whole
void modday(double value, int flag, std::string& name);

/// Name of the civil month; the Arabic names are the Levantine ones.
/// In     month   1 to 12
///        letter  'E' English, any other Arabic
/// Out    name    left as it was for another month number
void modmonth(int month, char letter, std::string& name);

} // namespace halvane
