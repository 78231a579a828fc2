// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace halvane {

/// A point of an outline                                                                          [deg]
struct WorldPoint {
    float longitude = 0; ///< east positive, -180 to 180
    float latitude = 0;  ///< north positive
    bool operator==(const WorldPoint&) const = default;
};

/// What the part of the world between two meridians and two parallels holds                       [deg]
struct WorldBox {
    float west = 0, south = 0, east = 0, north = 0;
};

/// A line of the world with the box that it fills.
struct WorldLine {
    std::vector<WorldPoint> points;
    WorldBox box;
};

/// The lines of the world: those of Natural Earth, 1 : 50 million the land and 1 : 110 million the borders.
struct WorldOutline {
    std::vector<WorldLine> rings;   ///< closed, the first point not repeated: land, and the water within it
    std::vector<WorldLine> borders; ///< that two countries share
};

/// Whether the side of a ring between two points is no coast: rings are cut along the 180th meridian, and
/// Antarctica is closed along the South Pole.
bool is_cut(const WorldPoint& a, const WorldPoint& b);

/// The outline in the text of a file (docs/data.md).
/// Error  raises RunTimeFailure naming `path`, the line and what is wrong there.
WorldOutline world_of_text(std::string_view text, const std::string& path);

/// Reads `world.txt`: the program folder's, else that of the executable's folder.
/// Error  raises RunTimeFailure for a missing or damaged file.
WorldOutline read_world_outline();

} // namespace halvane
