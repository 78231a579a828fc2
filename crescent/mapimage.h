#pragma once

#include "crescent/gif.h"
#include "crescent/maptexts.h"
#include "panel/language.h"

#include <QColor>
#include <QImage>
#include <QStringList>
#include <vector>

namespace halvane {

/// The picture of the world for a map.
/// Error  raises RunTimeFailure naming the file when it is missing or not of the map's size.
QImage read_map_image();

/// The map's own colours as bare_map_colours() tells them; that of the paper without a map.
std::vector<QColor> bare_colours(const QImage& map);

/// The first of them, for the legend.
QColor bare_colour(const QImage& map);

/// The colours of words and marks, and of what lies under them.
QColor map_ink();
QColor map_paper();

/// What a saved map shows.
struct MapSheetContent {
    QImage map;
    std::vector<MapPoint> points;
    QStringList information;
    std::vector<LegendLine> legend;
    Language language = Language::english;
};

/// A map with its marks, and with its information and legend below it, as it is saved; mirrored below the map
/// in Arabic.
QImage map_sheet(const MapSheetContent& content);

/// The picture in at most 256 colours: those of the classes and of the words first, then the most frequent
/// others; every further colour takes the nearest of these.
GifPicture indexed_picture(const QImage& image);

} // namespace halvane
