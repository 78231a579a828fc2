// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace halvane {

/// Text of `value` in a pattern such as "##00", "###00.0", "######": the zeros before the point are the
/// digits shown at least, those after it the decimals. Rounded half to even on the exact binary value. The
/// sign of a negative value is shown even where it rounds to zero. "######" of 0 is an empty text.
/// Error  raises RunTimeFailure for a value that is not finite.
std::string format_number(double value, std::string_view pattern);

/// The same, put behind `text`.
void append_number(std::string& text, double value, std::string_view pattern);

/// The shortest decimal text that reads back as `value`, never with an exponent ("0.5", "18").
/// Error  raises RunTimeFailure for a value that is not finite.
std::string plain_number(double value);
std::string plain_number(float value);

/// `value` as an item of its own in a report: its shortest text with a leading blank in place of a plus sign
/// and one trailing blank.
std::string number_item(double value);
std::string number_item(float value);

/// The number at the start of the text of an entry box: an optional sign, digits with at most one point and a
/// digit on at least one side of it; anything else counts as 0.
double numeric_prefix(std::string_view text);

} // namespace halvane
