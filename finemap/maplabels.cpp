// SPDX-License-Identifier: MIT
#include "finemap/maplabels.h"

#include "timetable/pageframe.h"

#include <QLineF>
#include <QTransform>
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace halvane {
namespace {

constexpr double millimetre = page_units;
constexpr double line_points = 6;
constexpr double place_points = 7;
constexpr double first_label = 25 * millimetre; ///< along a line
constexpr double next_label = 95 * millimetre;
constexpr QColor plate{0xFF, 0xFF, 0xFF, 0xD0};

/// A text with the plate that it stands on, its middle at the origin.
class PlatedText {
public:
    PlatedText(const std::string& words, double points, Language language, const QColor& colour)
        : font_(page_font(points, false, colour)), text_(words, font_, language),
          width_(text_.width() + 0.5 * em_of(font_)), height_(1.25 * em_of(font_)) {}

    double width() const { return width_; }
    double height() const { return height_; }

    void draw(QPainter& painter) const {
        painter.setPen(Qt::NoPen);
        painter.setBrush(plate);
        const QRectF place(-width_ / 2, -height_ / 2, width_, height_);
        painter.drawRoundedRect(place, 0.25 * height_, 0.25 * height_);
        text_.draw(painter, QPointF(0, 0.36 * em_of(font_)), LineAnchor::centre);
    }

private:
    PageFont font_;
    PageText text_;
    double width_;
    double height_;
};

/// A place on a line with its direction there.
struct LineSpot {
    QPointF point;
    double angle = 0;         ///< clockwise, so that words stand upright                         [deg]
    bool is_straight = false; ///< as far as the words reach
};

double length_of(const QPolygonF& line) {
    double length = 0;
    for (qsizetype i = 1; i < line.size(); ++i)
        length += QLineF(line[i - 1], line[i]).length();
    return length;
}

QPointF point_along(const QPolygonF& line, double distance) {
    for (qsizetype i = 1; i < line.size(); ++i) {
        const QLineF step(line[i - 1], line[i]);
        if (distance <= step.length() && step.length() > 0)
            return step.pointAt(distance / step.length());
        distance -= step.length();
    }
    return line.back();
}

LineSpot spot_along(const QPolygonF& line, double distance, double reach) {
    const QPointF way =
        point_along(line, distance + reach) - point_along(line, std::max(0.0, distance - reach));
    double angle = std::atan2(way.y(), way.x()) * 180 / std::numbers::pi;
    if (angle > 90)
        angle -= 180;
    else if (angle <= -90)
        angle += 180;
    constexpr double least_chord = 0.97;
    return {point_along(line, distance), angle, std::hypot(way.x(), way.y()) >= least_chord * 2 * reach};
}

} // namespace

bool MapLabels::take(const QRectF& place) {
    const auto meets = [&place](const QRectF& other) { return other.intersects(place); };
    if (!room_.contains(place) || std::any_of(taken_.begin(), taken_.end(), meets))
        return false;
    taken_.push_back(place);
    return true;
}

void MapLabels::write_along(const QPolygonF& line, const std::string& words, Language language,
                            const QColor& colour) {
    constexpr double least_length = 10 * millimetre;
    const double length = length_of(line);
    if (length < least_length)
        return;
    const PlatedText text(words, line_points, language, colour);
    if (length < 2 * text.width())
        return;
    constexpr double other_tries = 12 * millimetre;
    double distance = std::min(first_label, length / 2);
    while (distance + text.width() / 2 < length) {
        const LineSpot spot = spot_along(line, distance, text.width() / 2);
        QTransform turn;
        turn.translate(spot.point.x(), spot.point.y());
        turn.rotate(spot.angle);
        const QRectF place =
            turn.mapRect(QRectF(-text.width() / 2, -text.height() / 2, text.width(), text.height()));
        const bool is_taken = spot.is_straight && take(place);
        if (is_taken && is_painted(place)) {
            painter_.save();
            painter_.translate(spot.point);
            painter_.rotate(spot.angle);
            text.draw(painter_);
            painter_.restore();
        }
        distance += is_taken ? next_label : other_tries;
    }
}

void MapLabels::write_beside(const QPointF& point, double distance, const std::string& words,
                             Language language, const QColor& colour) {
    const PlatedText text(words, place_points, language, colour);
    const double across = text.width() / 2 + distance;
    const double up = text.height() / 2 + distance;
    const std::array<QPointF, 4> sides{QPointF(across, 0), QPointF(-across, 0), QPointF(0, -up),
                                       QPointF(0, up)};
    for (const QPointF& side : sides) {
        const QPointF middle = point + side;
        const QRectF place(middle - QPointF(text.width(), text.height()) / 2,
                           QSizeF(text.width(), text.height()));
        if (!take(place))
            continue;
        if (is_painted(place)) {
            painter_.save();
            painter_.translate(middle);
            text.draw(painter_);
            painter_.restore();
        }
        return;
    }
}

} // namespace halvane
