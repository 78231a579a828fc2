// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace halvane {

/// Takes a typed number, whole, with a point, or with an exponent, from `least` to `most`; false for any
/// other text, which leaves `value`.
bool take_number(std::string_view text, double least, double most, double& value);

/// "a number from 0 to 12"; "a number" where there are no bounds.
std::string range_words(const char* what, double least, double most);

/// "0 or 1", "1, 2 or 3"
std::string choice_of_letters(std::string_view letters);

/// The unit that a meaning ends with, without its brackets; empty for none.
std::string unit_of_meaning(std::string_view meaning);

} // namespace halvane
