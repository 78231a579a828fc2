// SPDX-License-Identifier: MIT
#include "finemap/mapgeometry.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace halvane {
namespace {

constexpr double circle = 360;
/// How far lines may be from where they belong; the gaps between two zones lie below the line between them.
constexpr double of_tolerance = 0.25;

/// A half of the plane: the points whose coordinate is on the inner side of a limit.
struct HalfPlane {
    bool of_x;
    double limit;
    double inward; ///< 1 where greater coordinates are inside, else -1

    double depth(const QPointF& point) const { return ((of_x ? point.x() : point.y()) - limit) * inward; }
};

QPolygonF cut_by(const QPolygonF& ring, const HalfPlane& half) {
    QPolygonF kept;
    kept.reserve(ring.size() + 4);
    QPointF before = ring.back();
    double depth_before = half.depth(before);
    for (const QPointF& point : ring) {
        const double depth = half.depth(point);
        if ((depth < 0) != (depth_before < 0))
            kept << before + (point - before) * (depth_before / (depth_before - depth));
        if (depth >= 0)
            kept << point;
        before = point;
        depth_before = depth;
    }
    return kept;
}

/// The span of a segment, from 0 to 1, that is within a rectangle.
struct SegmentSpan {
    double from = 0;
    double to = 1;

    /// Narrows the span by one side: `fall` is how fast the segment leaves it, `room` how far it may.
    void narrow(double fall, double room) {
        if (fall == 0) {
            to = room < 0 ? -1 : to;
            return;
        }
        const double at = room / fall;
        if (fall < 0)
            from = std::max(from, at);
        else
            to = std::min(to, at);
    }
};

SegmentSpan span_of(const QPointF& a, const QPointF& b, const QRectF& rectangle) {
    SegmentSpan span;
    const QPointF way = b - a;
    span.narrow(-way.x(), a.x() - rectangle.left());
    span.narrow(way.x(), rectangle.right() - a.x());
    span.narrow(-way.y(), a.y() - rectangle.top());
    span.narrow(way.y(), rectangle.bottom() - a.y());
    return span;
}

bool is_near(const QPointF& a, const QPointF& b, double tolerance) {
    return std::fabs(a.x() - b.x()) + std::fabs(a.y() - b.y()) < tolerance;
}

/// How far a point lies from the straight way between two others.
double distance_from(const QPointF& a, const QPointF& b, const QPointF& point) {
    const QPointF way = b - a;
    const QPointF to_point = point - a;
    const double length = std::hypot(way.x(), way.y());
    if (length == 0)
        return std::hypot(to_point.x(), to_point.y());
    return std::fabs(way.x() * to_point.y() - way.y() * to_point.x()) / length;
}

/// A line without the points that lie on the way between others: none is farther from it than `tolerance`.
QPolygonF simplified(const QPolygonF& line, double tolerance) {
    constexpr qsizetype most_left_out = 64; // bounds the time, which grows with its square
    QPolygonF kept;
    qsizetype last = 0;
    const auto is_straight = [&](qsizetype end) {
        for (qsizetype i = last + 1; i < end; ++i)
            if (distance_from(line[last], line[end], line[i]) > tolerance)
                return false;
        return true;
    };
    for (qsizetype i = 0; i < line.size(); ++i)
        if (i == 0 || i + 1 == line.size() || i - last > most_left_out || !is_straight(i + 1)) {
            kept << line[i];
            last = i;
        }
    return kept;
}

void add_ring(QPainterPath& path, const QPolygonF& ring) {
    if (ring.size() < 3)
        return;
    path.addPolygon(ring);
    path.closeSubpath();
}

} // namespace

QPolygonF clipped_ring(const QPolygonF& ring, const QRectF& rectangle) {
    if (rectangle.contains(ring.boundingRect()))
        return ring;
    const std::array<HalfPlane, 4> sides{{{true, rectangle.left(), 1},
                                          {true, rectangle.right(), -1},
                                          {false, rectangle.top(), 1},
                                          {false, rectangle.bottom(), -1}}};
    QPolygonF kept = ring;
    for (const HalfPlane& side : sides) {
        if (kept.isEmpty())
            break;
        kept = cut_by(kept, side);
    }
    return kept;
}

void add_clipped_line(QPainterPath& path, const QPolygonF& line, const QRectF& rectangle) {
    bool is_drawing = false;
    for (qsizetype i = 1; i < line.size(); ++i) {
        const QPointF& a = line[i - 1];
        const QPointF& b = line[i];
        const SegmentSpan span = span_of(a, b, rectangle);
        if (span.from > span.to) {
            is_drawing = false;
            continue;
        }
        if (!is_drawing || span.from > 0)
            path.moveTo(a + (b - a) * span.from);
        path.lineTo(a + (b - a) * span.to);
        is_drawing = span.to == 1;
    }
}

MapGeometry::MapGeometry(const MapFrame& frame, const QRectF& visible, const DrawnPrecision& precision)
    : frame_(frame), visible_(visible & QRectF(frame.left, frame.top, frame.width, frame.height)),
      precision_(precision) {}

bool MapGeometry::sees(const WorldBox& box, double shift) const {
    const QRectF place(point(double{box.west} + shift, box.north),
                       point(double{box.east} + shift, box.south));
    const bool is_speck = place.width() + place.height() < precision_.tolerance;
    return !is_speck && place.left() < visible_.right() && place.right() > visible_.left() &&
           place.top() < visible_.bottom() && place.bottom() > visible_.top();
}

template <class Visit>
void MapGeometry::each_shown(const std::vector<WorldLine>& lines, Visit visit) const {
    for (const double shift : {-circle, 0.0, circle})
        for (const WorldLine& line : lines)
            if (sees(line.box, shift))
                visit(line, shift);
}

QPolygonF MapGeometry::shown_points(const std::vector<WorldPoint>& points, std::size_t first,
                                    std::size_t count, double shift) const {
    QPolygonF shown;
    shown.reserve(static_cast<qsizetype>(count));
    QPointF latest;
    for (std::size_t i = 0; i < count; ++i) {
        const WorldPoint& place = points[(first + i) % points.size()];
        const QPointF next = point(double{place.longitude} + shift, place.latitude);
        if (i > 0 && i + 1 < count && is_near(latest, next, precision_.tolerance))
            continue;
        shown << next;
        latest = next;
    }
    return simplified(shown, of_tolerance * precision_.tolerance);
}

QPainterPath MapGeometry::land(const WorldOutline& world) const {
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    each_shown(world.rings, [&](const WorldLine& ring, double shift) {
        add_ring(path, clipped_ring(shown_points(ring.points, 0, ring.points.size(), shift), visible_));
    });
    return path;
}

QPainterPath MapGeometry::coast(const WorldOutline& world) const {
    QPainterPath path;
    each_shown(world.rings, [&](const WorldLine& ring, double shift) { add_shore(path, ring, shift); });
    return path;
}

void MapGeometry::add_shore(QPainterPath& path, const WorldLine& ring, double shift) const {
    const std::vector<WorldPoint>& points = ring.points;
    const std::size_t count = points.size();
    const auto cut_behind = [&](std::size_t i) { return is_cut(points[i % count], points[(i + 1) % count]); };
    std::size_t first = 0;
    while (first < count && !cut_behind(first))
        ++first;
    if (first == count) {
        add_clipped_line(path, shown_points(points, 0, count + 1, shift), visible_);
        return;
    }
    for (std::size_t begin = first + 1; begin <= first + count;) {
        std::size_t end = begin;
        while (end < first + count && !cut_behind(end))
            ++end;
        add_clipped_line(path, shown_points(points, begin, end - begin + 1, shift), visible_);
        begin = end + 1;
    }
}

QPainterPath MapGeometry::borders(const WorldOutline& world) const {
    QPainterPath path;
    each_shown(world.borders, [&](const WorldLine& border, double shift) {
        add_clipped_line(path, shown_points(border.points, 0, border.points.size(), shift), visible_);
    });
    return path;
}

QPolygonF MapGeometry::drawn(const MapRing& points, bool closed) const {
    QPolygonF shown;
    shown.reserve(static_cast<qsizetype>(points.size()) + 1);
    for (const MapPosition& place : points)
        shown << point(place);
    if (closed && !shown.isEmpty())
        shown << shown.front();
    return shown;
}

QPolygonF MapGeometry::thinned(const MapRing& points, bool closed) const {
    return simplified(drawn(points, closed), of_tolerance * precision_.tolerance);
}

QPainterPath MapGeometry::zone(const MapZone& zone) const {
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    const auto add = [&](const MapRing& ring) {
        if (!ring.empty())
            add_ring(path, clipped_ring(thinned(ring, true), visible_));
    };
    for (const ZonePolygon& polygon : zone.polygons) {
        add(polygon.outer);
        for (const MapRing& hole : polygon.holes)
            add(hole);
    }
    return path;
}

QPainterPath MapGeometry::line(const MapRing& points, bool closed) const {
    QPainterPath path;
    add_clipped_line(path, thinned(points, closed), visible_);
    return path;
}

} // namespace halvane
