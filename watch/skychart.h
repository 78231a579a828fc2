// SPDX-License-Identifier: MIT
#pragma once

#include "base/language.h"
#include "watch/crescentwatch.h"

#include <QPainter>
#include <QRectF>

namespace halvane {

/// Paints the horizon of a watch: the ways of the Moon and of the Sun by airless altitude and azimuth, a
/// degree of both alike long, with the clock at every ten minutes. The sky is not mirrored in Arabic.
/// In     room  of the chart with its axes                                                  [page units]
void paint_sky_chart(QPainter& painter, const QRectF& room, const CrescentWatch& watch, Language language);

} // namespace halvane
