// SPDX-License-Identifier: MIT
#include "finemap/markshapes.h"

#include <QPen>
#include <QPolygonF>
#include <cmath>
#include <initializer_list>
#include <numbers>

namespace halvane {
namespace {

constexpr QColor mark_ink{0x1C, 0x22, 0x2B};
constexpr QColor mark_rim{0xFF, 0xFF, 0xFF, 0xC0};

/// Builds a shape from lines between points given in parts of its radius.
class ShapeMaker {
public:
    ShapeMaker(const QPointF& centre, double radius) : centre_(centre), radius_(radius) {}

    void line(std::initializer_list<QPointF> points) {
        bool is_first = true;
        for (const QPointF& point : points) {
            if (is_first)
                path_.moveTo(at(point));
            else
                path_.lineTo(at(point));
            is_first = false;
        }
    }
    void close() { path_.closeSubpath(); }
    void circle(const QPointF& middle, double radius) {
        path_.addEllipse(at(middle), radius * radius_, radius * radius_);
    }
    void star(int points, double inner) {
        QPolygonF corners;
        for (int i = 0; i < 2 * points; ++i) {
            const double angle = (i * 1.0 / points - 0.5) * std::numbers::pi;
            corners << at((i % 2 == 0 ? 1 : inner) * QPointF(std::cos(angle), std::sin(angle)));
        }
        path_.addPolygon(corners);
        close();
    }
    /// An open arc about a point, counter-clockwise from an angle                                    [deg]
    void arc(const QPointF& middle, double radius, double from, double sweep) {
        const double r = radius * radius_;
        const QRectF box(at(middle) - QPointF(r, r), QSizeF(2 * r, 2 * r));
        path_.arcMoveTo(box, from);
        path_.arcTo(box, from, sweep);
    }
    QPainterPath path() const { return path_; }

private:
    QPointF at(const QPointF& point) const { return centre_ + radius_ * point; }

    QPointF centre_;
    double radius_;
    QPainterPath path_;
};

} // namespace

QPainterPath mark_shape(MapMark mark, const QPointF& centre, double radius) {
    ShapeMaker shape(centre, radius);
    switch (mark) {
    case MapMark::dash:
        shape.line({{-0.8, 0}, {0.8, 0}});
        break;
    case MapMark::dot:
        shape.circle({0, 0}, 0.22);
        shape.circle({0, 0}, 0.1);
        break;
    case MapMark::ring:
        shape.circle({0, 0}, 0.75);
        break;
    case MapMark::triangle:
        shape.line({{0, -0.85}, {0.85, 0.65}, {-0.85, 0.65}});
        shape.close();
        break;
    case MapMark::square:
        shape.line({{-0.7, -0.7}, {0.7, -0.7}, {0.7, 0.7}, {-0.7, 0.7}});
        shape.close();
        break;
    case MapMark::star:
        shape.star(5, 0.42);
        break;
    case MapMark::cross:
        shape.line({{-0.65, -0.65}, {0.65, 0.65}});
        shape.line({{-0.65, 0.65}, {0.65, -0.65}});
        break;
    case MapMark::arrow:
        shape.line({{0, -0.85}, {0, 0.85}});
        shape.line({{-0.55, 0.25}, {0, 0.85}, {0.55, 0.25}});
        break;
    case MapMark::question:
        shape.arc({0, -0.4}, 0.45, 180, -225);
        shape.line({{0.3, -0.08}, {0, 0.3}});
        shape.circle({0, 0.8}, 0.06);
        break;
    case MapMark::bars:
        shape.line({{-0.8, -0.35}, {0.8, -0.35}});
        shape.line({{-0.8, 0.35}, {0.8, 0.35}});
        break;
    }
    return shape.path();
}

void paint_mark(QPainter& painter, MapMark mark, const QPointF& centre, double radius) {
    const QPainterPath shape = mark_shape(mark, centre, radius);
    painter.strokePath(shape, QPen(mark_rim, 0.62 * radius, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.strokePath(shape, QPen(mark_ink, 0.26 * radius, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

} // namespace halvane
