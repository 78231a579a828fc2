// SPDX-License-Identifier: MIT
#pragma once

#include "finemap/mapplaces.h"

#include <cstddef>
#include <vector>

namespace halvane {

/// A piece of the border between two classes, with the one on the left of its way and the one on the right.
struct BorderSegment {
    std::size_t from, to; ///< indices of the points
    MapClass left, right;
};

/// All borders of a part of a map. Where two of them meet, they have a point in common.
struct ClassBorders {
    std::vector<MapPosition> points;
    std::vector<BorderSegment> segments; ///< inside the part
    std::vector<BorderSegment> frame;    ///< around it, counter-clockwise; only `left` is told
};

/// Finds the borders between the classes of a part. Each cell of the grid is two triangles. Where two corners
/// of a triangle differ, the places on its side where the class changes are searched for by the measure
/// itself; they are joined through the triangle by lines that are bent until they follow the border.
/// In     part  with its nodes judged by `judge`
/// Returns nothing after a cancel
/// Accuracy  0.001 deg; see make_fine_map.
std::optional<ClassBorders> class_borders(const MapJudge& judge, const MapPart& part, Progress& progress);

} // namespace halvane
