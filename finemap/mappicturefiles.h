// SPDX-License-Identifier: MIT
#pragma once

#include "finemap/mapdocument.h"

namespace halvane {

/// Draws a document as a PNG, SVG or PDF file. A picture of any size is painted strip by strip. A
/// QGuiApplication must be running.
/// In     format  one that is drawn
///        take    is given the bytes as they are made
/// Error  raises RunTimeFailure when the system has no font for the language.
void draw_maps(const MapDocument& document, const WorldOutline& world, MapFormat format,
               const TakeBytes& take);

} // namespace halvane
