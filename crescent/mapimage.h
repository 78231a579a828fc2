// SPDX-License-Identifier: MIT
#pragma once

#include "crescent/gif.h"
#include "crescent/mapsheet.h"
#include "crescent/sheetpainter.h"

#include <QColor>
#include <QImage>
#include <vector>

namespace halvane {

/// The picture of the world for a map.
/// Error  raises RunTimeFailure naming the file when it is missing or not of the map's size.
QImage read_map_image();

/// The map's own colours as bare_map_colours() tells them; that of the paper without a map.
std::vector<QColor> bare_colours(const QImage& map);

/// The first of them, for the legend.
QColor bare_colour(const QImage& map);

/// A colour of the map as the toolkit has it, and back.
QColor shown(const ClassColour& colour);
ClassColour plain(const QColor& colour);

/// The colours of words and marks, and of what lies under them.
inline QColor map_ink() {
    return shown(MapSheet::ink);
}
inline QColor map_paper() {
    return shown(MapSheet::paper);
}

/// A map with its marks, and with its information and legend below it, as it is saved; mirrored below the map
/// in Arabic.
QImage map_sheet(const QImage& map, const MapSheetContent& content);

/// The picture in at most 256 colours: those of the classes and of the words first, then the most frequent
/// others; every further colour takes the nearest of these.
GifPicture indexed_picture(const QImage& image);

} // namespace halvane
