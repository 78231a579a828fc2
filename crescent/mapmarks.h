// SPDX-License-Identifier: MIT
#pragma once

#include "crescent/visibilitymap.h"

#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace halvane {

/// What a drawing has found out so far, place by place of its grid.
class MapClasses {
public:
    /// Returns whether the place is new: a filled block paints its five sample points a second time.
    bool add(const MapPoint& point);

    /// The class of a place of the grid; none where nothing is drawn yet, and outside the grid. A block whose
    /// five points agree on class not_possible hands over no other points: they have that class.
    std::optional<VisibilityClass> at(int longitude, int latitude) const;

    /// The class of the place of the grid that is nearest to a pixel of the map's picture.
    std::optional<VisibilityClass> nearest(double x, double y) const;

private:
    std::map<std::pair<int, int>, VisibilityClass> places_;
};

/// A mark within a zone of its class.
struct MapMark {
    MapPixel centre;
    VisibilityClass visibility;
};

/// Where the marks stand: in every zone that has room for one, as far from the zone's edges as it goes, and
/// again at wide distances in a large zone. The largest zone of a class has a mark however small it is.
std::vector<MapMark> map_marks(const MapClasses& classes);

} // namespace halvane
