// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace halvane {

/// The first name that begins with `word`; without one the name that the fewest changes of one byte (put in,
/// taken out, replaced) make of `word`; the first of several. `names` holds one at least.
std::string nearest_name(std::string_view word, const std::vector<std::string>& names);

} // namespace halvane
