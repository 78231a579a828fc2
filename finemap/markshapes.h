// SPDX-License-Identifier: MIT
#pragma once

#include "finemap/mapstyle.h"

#include <QPainter>
#include <QPainterPath>
#include <QPointF>

namespace halvane {

/// The outline of a mark about a point.
/// In     radius  of the circle that it fills
QPainterPath mark_shape(MapMark mark, const QPointF& centre, double radius);

/// Paints a mark dark over a light rim, to be seen on every zone.
void paint_mark(QPainter& painter, MapMark mark, const QPointF& centre, double radius);

} // namespace halvane
