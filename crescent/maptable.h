// SPDX-License-Identifier: MIT
#pragma once

#include "crescent/visibilitymap.h"
#include "report/run.h"

#include <vector>

namespace halvane {

/// The points of a map in drawing order, a row each, with the numbers of their classes. As text, for a
/// terminal: lines of what the map is of, each behind "# ", then the points as "longitude,latitude,class".
/// In     points  as draw_visibility_map gives them
RunPointer map_table(const MapRun& map, std::vector<MapPoint> points);

} // namespace halvane
