// SPDX-License-Identifier: MIT
#pragma once

#include "finemap/classborders.h"

#include <vector>

namespace halvane {

/// The zones that borders enclose, in the order of the classes.
std::vector<MapZone> zones_within(const ClassBorders& borders);

} // namespace halvane
