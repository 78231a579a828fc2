// SPDX-License-Identifier: MIT
#pragma once

#include "hijri/monthpage.h"
#include "hijri/monthsheet.h"

#include <QPainter>
#include <QRectF>

namespace halvane {

/// What stands behind a feast that is kept in the night before its day.
inline constexpr const char* night_mark = "*";

/// Paints the weeks of a month at the top of `room`, Sunday first, and gives where they end. Of Arabic alone
/// the week begins at the right.
double paint_month_grid(QPainter& painter, const QRectF& room, const MonthSheet& sheet,
                        const MonthPage& page);

/// Paints the Moon as a disc: what is lit is white.
/// In     mirrored  as it is seen from south of the equator
void paint_moon(QPainter& painter, const QPointF& centre, double radius, Phase phase, bool mirrored);

} // namespace halvane
