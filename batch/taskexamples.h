// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace halvane {

/// Command lines of a task, for its help and its page of the manual; a test runs each.
std::vector<std::string> examples_of(std::string_view task);

} // namespace halvane
