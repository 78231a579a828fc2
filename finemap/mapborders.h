// SPDX-License-Identifier: MIT
#pragma once

#include "finemap/finemap.h"

#include <vector>

namespace halvane {

/// A line between two zones, `one` the lower of the classes.
struct MapBorder {
    MapClass one = MapClass::band_0;
    MapClass other = MapClass::band_0;
    MapRing points;
    bool closed = false; ///< the first point follows the last
};

/// The lines between the zones of a map, each once; not the sides of the window.
std::vector<MapBorder> borders_of(const FineMap& map);

} // namespace halvane
