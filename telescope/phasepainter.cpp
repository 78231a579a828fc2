// SPDX-License-Identifier: MIT
#include "telescope/phasepainter.h"

#include "ephemeris/modgeneral.h"

#include <QPainter>
#include <QPolygonF>
#include <algorithm>
#include <cmath>

namespace halvane {
namespace {

const QColor earthlit(0x26, 0x2C, 0x31);
const QColor outline(0x8A, 0x96, 0x9E); // 7 to 1 on the sky
const QColor sunlit(0xF4, 0xF1, 0xE6);
const QColor mark(0xB8, 0xC4, 0xCC);   // 11 to 1 on the sky
constexpr double disc_radius = 0.29;   // of the square's side
constexpr double outline_width = 0.03; // of the disc's radius
constexpr double mark_near = 1.07;     // tip of the mark, in radii from the disc's centre
constexpr double mark_far = 1.17;
constexpr double mark_half_width = 0.06;
constexpr double word_gap = 0.03;

constexpr double half_turn = 180; // [deg]

/// Unit vector in the view, y down.
QPointF towards(double direction) {
    return {-std::sin(direction * radians_per_degree), -std::cos(direction * radians_per_degree)};
}

void paint_disc(QPainter& painter, const DrawnPhase& phase, double limb) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(earthlit);
    painter.drawEllipse(QPointF(), 1, 1);
    painter.save();
    painter.rotate(-limb);
    painter.setBrush(sunlit);
    painter.drawPath(lit_part(phase.fraction));
    painter.restore();
    painter.setPen(QPen(outline, outline_width));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(QPointF(), 1, 1);
}

/// A triangle that points at the limb from outside.
void paint_mark(QPainter& painter, const QPointF& direction) {
    const QPointF across(direction.y(), -direction.x());
    painter.setPen(Qt::NoPen);
    painter.setBrush(mark);
    painter.drawPolygon(QPolygonF{direction * mark_near, direction * mark_far + across * mark_half_width,
                                  direction * mark_far - across * mark_half_width});
}

/// The word with its box just outside `point`, within `square`.
void paint_word(QPainter& painter, const QRectF& square, const QPointF& point, const QPointF& direction,
                const QString& word) {
    QRectF box(QPointF(), QSizeF(painter.fontMetrics().size(0, word)));
    box.moveCenter(point + QPointF(direction.x() * box.width() / 2, direction.y() * box.height() / 2));
    box.moveLeft(
        std::clamp(box.left(), square.left(), std::max(square.left(), square.right() - box.width())));
    box.moveTop(std::clamp(box.top(), square.top(), std::max(square.top(), square.bottom() - box.height())));
    painter.setPen(mark);
    painter.drawText(box, Qt::AlignCenter, word);
}

} // namespace

QPainterPath lit_part(double fraction) {
    const double terminator = 2 * fraction - 1; // where it meets the axis, 1 at the dark limb
    QPainterPath path(QPointF(1, 0));
    path.arcTo(QRectF(-1, -1, 2, 2), 0, half_turn);
    const double height = std::fabs(terminator);
    path.arcTo(QRectF(-1, -height, 2, 2 * height), half_turn, terminator > 0 ? half_turn : -half_turn);
    path.closeSubpath();
    return path;
}

double drawn_limb(const DrawnPhase& phase) {
    double direction = phase.zenith_angle;
    if (phase.flip_horizontal)
        direction = -direction;
    if (phase.flip_vertical)
        direction = half_turn - direction;
    return turn_into_360(direction);
}

void paint_phase(QPainter& painter, const QRectF& square, const DrawnPhase& phase, const QString& lit_word) {
    const double radius = square.width() * disc_radius;
    const double limb = drawn_limb(phase);
    const QPointF direction = towards(limb);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(square.center());
    painter.scale(radius, radius);
    paint_disc(painter, phase, limb);
    paint_mark(painter, direction);
    painter.restore();
    paint_word(painter, square, square.center() + direction * radius * (mark_far + word_gap), direction,
               lit_word);
}

} // namespace halvane
