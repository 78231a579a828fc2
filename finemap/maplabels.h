// SPDX-License-Identifier: MIT
#pragma once

#include "base/language.h"

#include <QColor>
#include <QPainter>
#include <QPointF>
#include <QPolygonF>
#include <QRectF>
#include <string>
#include <vector>

namespace halvane {

/// Writes the words that stand on a map itself, none over another. Lengths are page units.
class MapLabels {
public:
    /// In     room     words stay within it
    ///        visible  what is painted of it; the others keep their places all the same
    MapLabels(QPainter& painter, const QRectF& room, const QRectF& visible)
        : painter_(painter), room_(room), visible_(visible) {}

    /// Writes words along a line, again and again where it is long.
    void write_along(const QPolygonF& line, const std::string& words, Language language,
                     const QColor& colour);

    /// Writes words beside a point: on the right, else on the left, above or below it.
    void write_beside(const QPointF& point, double distance, const std::string& words, Language language,
                      const QColor& colour);

    /// Keeps a place free of words.
    void keep_free(const QRectF& place) { taken_.push_back(place); }

private:
    bool take(const QRectF& place);
    bool is_painted(const QRectF& place) const { return place.intersects(visible_); }

    QPainter& painter_;
    QRectF room_;
    QRectF visible_;
    std::vector<QRectF> taken_;
};

} // namespace halvane
