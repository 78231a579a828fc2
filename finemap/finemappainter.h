// SPDX-License-Identifier: MIT
#pragma once

#include "finemap/mapborders.h"
#include "finemap/mapdocument.h"
#include "finemap/mapframe.h"
#include "finemap/mapgeometry.h"
#include "finemap/maplabels.h"
#include "finemap/mapstyle.h"

#include <QColor>
#include <QPainter>
#include <QPen>
#include <QRectF>
#include <vector>

namespace halvane {

/// Lines of equal value of one quantity.
struct ValueLines {
    MapQuantity quantity = MapQuantity::lag;
    double every = 0; ///< between two lines; as in MapNode
    std::vector<MapLine> lines;
};

/// Paints a map with any QPainter: on a screen, in a picture, on paper. Lengths are page units
/// (timetable/pagetext.h); where a map is shown larger, so are its lines and words.
class FineMapPainter {
public:
    /// In     map, world  must outlive the painter
    FineMapPainter(const FineMap& map, const WorldOutline& world, MapLook look);

    /// Paints what the frame's window shows, without degrees at its sides.
    /// In     visible  the part of the frame that is wanted; the rest is left out
    void paint(QPainter& painter, const MapFrame& frame, const QRectF& visible) const;
    /// The degrees at the left and the lower side of the frame.
    void paint_degrees(QPainter& painter, const MapFrame& frame) const;

    const FineMap& map() const { return map_; }
    const MapLook& look() const { return look_; }
    const std::vector<ValueLines>& value_lines() const { return value_lines_; }

private:
    void paint_ground(QPainter& painter, const MapGeometry& geometry, const MapFrame& frame) const;
    void paint_zones(QPainter& painter, const MapGeometry& geometry) const;
    void paint_outlines(QPainter& painter, const MapGeometry& geometry) const;
    void paint_zone_marks(QPainter& painter, const MapGeometry& geometry, const MapFrame& frame) const;
    void paint_words(QPainter& painter, const MapGeometry& geometry, const MapFrame& frame) const;
    void paint_places(QPainter& painter, const MapGeometry& geometry, const MapFrame& frame,
                      MapLabels& labels) const;

    const FineMap& map_;
    const WorldOutline& world_;
    MapLook look_;
    std::vector<MapBorder> borders_;
    std::vector<ValueLines> value_lines_;
};

/// How a line of a map is drawn.
QPen pen_of(NamedBorder border);
QPen pen_of(MapQuantity quantity);

/// The radius of the marks                                                                 [page units]
double mark_radius();

/// Paints the mark of a place about a point.
void paint_place_mark(QPainter& painter, const QPointF& point, bool is_users);

QColor colour_of(const ClassColour& colour, double opacity = 1);

} // namespace halvane
