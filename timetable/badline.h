// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"

#include <string>

namespace halvane {

/// "places.csv, line 3: ...", a sentence.
TwinWords line_words(const std::string& path, int line, const TwinWords& words);

/// The failure of a line of a file.
[[noreturn]] void raise_bad_line(const std::string& path, int line, const std::string& english,
                                 const std::string& arabic);

} // namespace halvane
