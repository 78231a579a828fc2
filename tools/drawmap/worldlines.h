// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <vector>

#include <QPainterPath>
#include <QPointF>

namespace halvane {

/// A flat map whose longitudes and latitudes are equally spaced; picture units are pixels, y downward.
struct PlateCarree {
    double centre_x = 0; ///< x of longitude 0
    double centre_y = 0; ///< y of latitude 0
    double x_scale = 1;  ///< pixels per degree of longitude
    double y_scale = 1;  ///< pixels per degree of latitude

    [[nodiscard]] double x(double longitude) const { return centre_x + longitude * x_scale; }
    [[nodiscard]] double y(double latitude) const { return centre_y - latitude * y_scale; }
    [[nodiscard]] QPointF point(double longitude, double latitude) const {
        return {x(longitude), y(latitude)};
    }
};

/// The lines of the world, degrees, x east and y north.
struct WorldLines {
    using Line = std::vector<QPointF>;

    std::vector<Line> rings;   ///< closed outlines of land, and of the water inside it
    std::vector<Line> borders; ///< lines that two countries share

    /// All land as one area for the odd-even rule, repeated to the west and east so that it runs on over the
    /// 180th meridian.
    [[nodiscard]] QPainterPath land(const PlateCarree& map) const;

    /// The coast: the outlines of the land without the cuts along the 180th meridian and the South Pole.
    /// Rings that are neither as wide nor as high as `smallest` degrees are left out.
    [[nodiscard]] QPainterPath coast(const PlateCarree& map, double smallest = 0) const;

    [[nodiscard]] QPainterPath border_path(const PlateCarree& map) const;
};

/// Reads "land-50m.csv" (columns ring, hole, longitude, latitude) and "borders-110m.csv" (line, longitude,
/// latitude) of a folder; throws std::runtime_error that names the file and row it cannot read.
WorldLines read_world_lines(const std::filesystem::path& folder);

} // namespace halvane
