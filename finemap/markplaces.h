// SPDX-License-Identifier: MIT
#pragma once

#include "finemap/mapframe.h"

#include <vector>

namespace halvane {

/// The node of a map's grid that is nearest to a point of its window; nullptr outside the grid.
const MapNode* node_near(const FineMap& map, const MapPosition& place);

/// A mark of a class.
struct PlacedMark {
    MapPosition position;
    MapClass map_class = MapClass::band_0;
};

/// How marks are strewn, in the frame's units.
struct MarkPattern {
    double spacing = 0; ///< between two of a row
    double radius = 0;  ///< of a mark
};

/// Where the marks of a frame's zones stand: at the knots of a net that is fixed to the Earth, wherever a
/// mark has room within its zone, and between them in zones that are too narrow for it.
std::vector<PlacedMark> mark_places(const FineMap& map, const MapFrame& frame, const MarkPattern& pattern);

} // namespace halvane
