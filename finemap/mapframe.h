// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "finemap/finemap.h"

#include <optional>

namespace halvane {

/// Where a part of the world lies on a drawing: meridians and parallels are straight and equally spaced.
/// Lengths are in any unit, y grows downward.
struct MapFrame {
    MapWindow window; ///< that is shown; it may be less than a map has
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;

    double right() const { return left + width; }
    double bottom() const { return top + height; }
    /// Units for a degree.
    double x_scale() const { return width / (window.east - window.west); }
    double y_scale() const { return height / (window.north - window.south); }
    double x(double longitude) const { return left + (longitude - window.west) * x_scale(); }
    double y(double latitude) const { return top + (window.north - latitude) * y_scale(); }
    double longitude(double x) const { return window.west + (x - left) / x_scale(); }
    double latitude(double y) const { return window.north - (y - top) / y_scale(); }
};

/// Why a window is none: beyond the latitudes of a map, of no area or wider than the Earth; nothing for a
/// good one. In     step  of the map's grid, which it is as wide and as high as at least              [deg]
std::optional<TwinWords> refused_window(const MapWindow& window, double step);

/// The height over the width of a window's map on which shapes are true at its middle parallel: the equator's
/// for the whole world. A window near a pole is drawn as if it were at 78 degrees.
double shape_of(const MapWindow& window);

/// The frame of a window that fills a room as far as its shape goes, in the middle of it.
/// In     room  its window is not looked at
MapFrame fitted_frame(const MapWindow& window, const MapFrame& room);

/// A longitude in the window's own: 190 in a window that goes on east of 180. One outside is east of it.
double longitude_in(const MapWindow& window, double longitude);

/// Whether a point lies in a window, its sides counted in. In     longitude  as longitude_in gives it
bool holds(const MapWindow& window, const MapPosition& place);

} // namespace halvane
