// SPDX-License-Identifier: MIT
#include "crescent/sheetpainter.h"

#include "crescent/mapmarks.h"
#include "crescent/mapsheet.h"

#include <cmath>

namespace halvane {
namespace {

void paint_points(MapSurface& surface, std::span<const MapPoint> points) {
    MapClasses classes;
    for (const MapPoint& point : points) {
        if (point.visibility != VisibilityClass::not_possible)
            surface.circle(map_pixel(point.longitude, point.latitude), class_colour(point.visibility));
        classes.add(point);
    }
    for (const MapMark& mark : map_marks(classes))
        surface.mark({std::round(mark.centre.x), std::round(mark.centre.y)}, class_mark(mark.visibility),
                     MapSheet::ink, MapSheet::paper);
}

void write_legend(MapSurface& surface, const MapSheetContent& content) {
    int line = 0;
    for (const LegendLine& entry : content.legend) {
        const MapSurface::Square swatch{MapSheet::legend_left, MapSheet::swatch_top(line), MapSheet::swatch};
        surface.fill(swatch, legend_colour(entry.visibility, content.bare));
        surface.outline(swatch, MapSheet::ink);
        surface.write(MapSheet::mark_left, line, {class_mark(entry.visibility)}, MapSheet::ink);
        surface.write(MapSheet::words_left, line, entry.text.in(content.language), MapSheet::ink);
        ++line;
    }
}

} // namespace

void paint_sheet(MapSurface& surface, const MapSheetContent& content) {
    paint_points(surface, content.points);
    int line = 0;
    for (const std::string& words : content.information)
        surface.write(MapSheet::margin, line++, words, MapSheet::ink);
    write_legend(surface, content);
}

} // namespace halvane
