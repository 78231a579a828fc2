// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"

#include <functional>
#include <string>
#include <string_view>

namespace halvane {

/// Takes a value of an INI text. Returns why it is none, in a few words; empty words for a good one.
using TakeIniValue =
    std::function<TwinWords(std::string_view section, std::string_view key, std::string_view value)>;

/// Reads an INI text: "key = value" in sections, a line of at most 198 bytes each.
/// Error  raises RunTimeFailure (damaged file) naming `path`, the line and what is wrong there: a line of
///        another form, the first value that is refused.
void read_ini_text(std::string_view text, const std::string& path, const TakeIniValue& take);

/// What is told of a refused value: "aser: wanted standard, hanafi; found "shafi"".
TwinWords wanted_words(std::string_view key, const std::string& wanted, std::string_view found);

/// What is told of a key that the file has not: "there is no [rules] fajer".
TwinWords unknown_key_words(std::string_view section, std::string_view key);

} // namespace halvane
