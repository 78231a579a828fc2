// SPDX-License-Identifier: MIT
#pragma once

#include "base/language.h"
#include "watch/crescentwatch.h"

#include <QPainter>
#include <QPainterPath>
#include <QRectF>

namespace halvane {

/// The lit part of a disc: half of its limb and half of the ellipse of the terminator.
/// In     radius        of the disc about (0, 0)
///        phase_angle   180 New Moon, 0 Full Moon                                             [deg]
///        zenith_angle  of the bright limb's middle, as WatchPointing has it                  [deg]
/// Source Meeus, Astronomical Algorithms, chapter "Illuminated Fraction of the Moon's Disk".
QPainterPath lit_part(double radius, double phase_angle, double zenith_angle);

/// Paints the crescent as an upright eye sees it, true to scale: the disc, its lit part, where the zenith,
/// the north and the Sun are, the line of the horns, and a measure of ten minutes of arc. In     square  of
/// the figure                                                           [page units]
void paint_crescent_figure(QPainter& painter, const QRectF& square, const WatchPointing& pointing,
                           Language language);

} // namespace halvane
