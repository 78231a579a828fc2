// SPDX-License-Identifier: MIT
#pragma once

#include "finemap/mapframe.h"
#include "finemap/worldoutline.h"

#include <QPainterPath>
#include <QPolygonF>
#include <QRectF>
#include <cmath>
#include <cstddef>
#include <vector>

namespace halvane {

/// How exactly lines are drawn                                                       [units of the frame]
struct DrawnPrecision {
    double tolerance = 0; ///< lengths that cannot be seen
    double unit = 0;      ///< coordinates are multiples of it; 0: any number
};

/// Turns lines of the Earth into paths of a drawing. What lies outside `visible` is cut off, so that no
/// painter needs to clip, and points that cannot be told apart on the drawing become one.
class MapGeometry {
public:
    /// In     visible  part of the frame that is drawn; it is cut to the frame
    MapGeometry(const MapFrame& frame, const QRectF& visible, const DrawnPrecision& precision);

    const QRectF& visible() const { return visible_; }
    QPointF point(double longitude, double latitude) const {
        return {rounded(frame_.x(longitude)), rounded(frame_.y(latitude))};
    }
    QPointF point(const MapPosition& place) const { return point(place.longitude, place.latitude); }

    /// All land for the odd-even rule, as often as the window shows it.
    QPainterPath land(const WorldOutline& world) const;
    /// The shores of land and inland water, without the cuts of the rings.
    QPainterPath coast(const WorldOutline& world) const;
    QPainterPath borders(const WorldOutline& world) const;

    /// A zone for the odd-even rule.
    QPainterPath zone(const MapZone& zone) const;
    QPainterPath line(const MapRing& points, bool closed) const;
    /// The same as points of the drawing, not cut off.
    QPolygonF drawn(const MapRing& points, bool closed) const;

private:
    double rounded(double coordinate) const {
        return precision_.unit > 0 ? std::round(coordinate / precision_.unit) * precision_.unit : coordinate;
    }
    QPolygonF thinned(const MapRing& points, bool closed) const;
    bool sees(const WorldBox& box, double shift) const;
    template <class Visit>
    void each_shown(const std::vector<WorldLine>& lines, Visit visit) const;
    QPolygonF shown_points(const std::vector<WorldPoint>& points, std::size_t first, std::size_t count,
                           double shift) const;
    void add_shore(QPainterPath& path, const WorldLine& ring, double shift) const;

    MapFrame frame_;
    QRectF visible_;
    DrawnPrecision precision_;
};

/// The part of a closed line within a rectangle.
/// Source Sutherland and Hodgman, Communications of the ACM 17, 32 (1974).
QPolygonF clipped_ring(const QPolygonF& ring, const QRectF& rectangle);

/// Adds the parts of an open line within a rectangle.
/// Source Liang and Barsky, ACM Transactions on Graphics 3, 1 (1984).
void add_clipped_line(QPainterPath& path, const QPolygonF& line, const QRectF& rectangle);

} // namespace halvane
