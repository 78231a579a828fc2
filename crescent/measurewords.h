// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"

#include <string>
#include <string_view>

namespace halvane {

/// One text behind the other, in each language.
TwinWords operator+(const TwinWords& first, const TwinWords& second);

/// A text that is the same in both languages: a number, a clock, a name.
TwinWords plain_words(const std::string& text);

/// A number by a pattern of format_number.
TwinWords number_words(double value, std::string_view pattern);

/// A criterion's measure with its unit: "7.25°", "41.3 min", "0.215".
/// In     unit  as in CataloguedCriterion: "deg", "min"; any other is not told
TwinWords measure_words(double value, std::string_view unit);

} // namespace halvane
