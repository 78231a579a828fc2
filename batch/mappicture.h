// SPDX-License-Identifier: MIT
#pragma once

#include "crescent/visibilitymap.h"

#include <string>
#include <vector>

namespace halvane {

/// Writes a map with its information and legend below it as a GIF file, over `map.gif` of the program folder
/// (or the executable's).
/// Error  raises RunTimeFailure when the map's picture cannot be read, when `path` names a file of the
/// program and when it cannot be written.
void save_map_picture(const MapRun& run, const std::vector<MapPoint>& points, const std::string& path);

} // namespace halvane
