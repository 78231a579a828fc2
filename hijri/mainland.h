// SPDX-License-Identifier: MIT
#pragma once

#include "finemap/finemap.h"
#include "finemap/worldoutline.h"

namespace halvane {

/// The coast of the mainland of the Americas; empty where the outline has none.
MapRing mainland_of_the_americas(const WorldOutline& world);

/// Whether a ring holds a point. In     point  longitude -180 to 180
bool holds(const MapRing& ring, const MapPosition& point);

/// What a ring and a window share, by whole degrees outwards.
MapWindow box_of(const MapRing& ring, const MapWindow& window);

} // namespace halvane
