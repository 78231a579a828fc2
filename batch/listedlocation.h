// SPDX-License-Identifier: MIT
#pragma once

#include "stored/loc.h"

#include <string>

namespace halvane {

/// The location of a name in the list of locations. Reads `loc.txt`.
/// Error  raises UsageMistake that tells the nearest name, and as find_location.
Location listed_location(const std::string& name);

} // namespace halvane
