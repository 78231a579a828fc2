// SPDX-License-Identifier: MIT
#pragma once

#include "finemap/finemap.h"

namespace halvane {

/// What lines of equal value are drawn of; each as in MapNode.
enum class MapQuantity { lag, age, altitude, elongation };

/// A quantity of a node, as in MapNode.
float quantity_of(const MapNode& node, MapQuantity quantity);

/// A line of equal value.
struct MapLine {
    double level = 0; ///< [min], [h] or [deg]
    MapRing points;
    bool closed = false;
};

/// The lines of a quantity at the multiples of `every`, in the map's longitudes.
std::vector<MapLine> map_lines(const FineMap& map, MapQuantity quantity, double every);

} // namespace halvane
