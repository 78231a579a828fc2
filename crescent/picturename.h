// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace halvane {

/// The name that a picture is saved under: `chosen` with the ending of a picture taken off (".gif", ".bmp"
/// and their kind, capital or not; any other ending belongs to the name) and ".gif" put on.
std::string gif_name(const std::string& chosen);

} // namespace halvane
