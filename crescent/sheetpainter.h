// SPDX-License-Identifier: MIT
#pragma once

#include "crescent/criteria.h"
#include "crescent/visibilitymap.h"

#include <span>
#include <string>
#include <vector>

namespace halvane {

/// What a map is saved as is drawn on such a surface, which already shows the picture of the world at its
/// top. Places are pixels of the sheet in English; a surface in Arabic mirrors what stands below the map.
class MapSurface {
public:
    /// A square of the sheet, whose sides belong to it.
    struct Square {
        int left;
        int top;
        int side;
    };

    virtual ~MapSurface() = default;
    /// The circle that stands for a point of the map, of map_point_radius.
    virtual void circle(const MapPixel& centre, const ClassColour& colour) = 0;
    /// The mark of a class, map_mark_height high, in `colour` with a rim of `rim`.
    virtual void mark(const MapPixel& centre, char figure, const ClassColour& colour,
                      const ClassColour& rim) = 0;
    virtual void fill(const Square& square, const ClassColour& colour) = 0;
    virtual void outline(const Square& square, const ClassColour& colour) = 0;
    /// Words on a line of the band below the map, counted from 0 (MapSheet::line_top).
    virtual void write(int left, int line, const std::string& words, const ClassColour& colour) = 0;
};

/// What a map's sheet shows.
struct MapSheetContent {
    std::span<const MapPoint> points;
    std::vector<std::string> information;
    std::vector<LegendLine> legend;
    ClassColour bare{};                    ///< the map's own colour, which class not_possible lets through
    Language language = Language::english; ///< of the legend
};

/// Draws the points with the marks of their zones, and below the map the information and the legend.
void paint_sheet(MapSurface& surface, const MapSheetContent& content);

} // namespace halvane
