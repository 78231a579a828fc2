// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>
#include <QRectF>
#include <QString>

class QPainter;

namespace halvane {

/// A phase as it is turned in the view.
struct DrawnPhase {
    double fraction = 0;     ///< of the disc that is lit, 0 to 1
    double zenith_angle = 0; ///< of the bright limb: 0 towards the zenith, then towards the left      [deg]
    bool flip_horizontal = false;
    bool flip_vertical = false;
};

/// The lit part of a disc of radius 1 around the origin, its bright limb towards the top (y = -1).
QPainterPath lit_part(double fraction);

/// The direction of the bright limb in the view, flips included: 0 up, then to the left; 0 to below 360 [deg]
double drawn_limb(const DrawnPhase& phase);

/// Draws the whole disc into `square`: its outline, the dark side in the light of the Earth, the lit side,
/// and beside the bright limb a mark with its word, in the painter's font.
void paint_phase(QPainter& painter, const QRectF& square, const DrawnPhase& phase, const QString& lit_word);

} // namespace halvane
