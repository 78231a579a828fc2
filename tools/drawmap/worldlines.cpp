// SPDX-License-Identifier: MIT
#include "tools/drawmap/worldlines.h"

#include <charconv>
#include <cmath>
#include <fstream>
#include <stdexcept>
#include <string>

#include <QPolygonF>

namespace halvane {
namespace {

std::vector<double> numbers_of(const std::string& row) {
    std::vector<double> numbers;
    const char* const end = row.data() + row.size();
    for (const char* next = row.data(); next <= end; ++next) {
        double number = 0;
        const auto [stop, error] = std::from_chars(next, end, number);
        if (error != std::errc() || (stop != end && *stop != ',')) {
            return {};
        }
        numbers.push_back(number);
        next = stop;
    }
    return numbers;
}

/// The lines of a table whose first column counts them and whose last two are longitude and latitude.
std::vector<WorldLines::Line> read_lines(const std::filesystem::path& file_name, std::size_t columns) {
    std::ifstream file(file_name);
    if (!file) {
        throw std::runtime_error("cannot open " + file_name.string());
    }
    std::vector<WorldLines::Line> lines;
    std::string row;
    std::getline(file, row);
    for (int row_number = 2; std::getline(file, row); ++row_number) {
        const std::vector<double> numbers = numbers_of(row);
        if (numbers.size() != columns) {
            throw std::runtime_error(file_name.string() + ", row " + std::to_string(row_number) + ": " + row);
        }
        if (static_cast<std::size_t>(numbers[0]) != lines.size()) {
            lines.emplace_back();
        }
        lines.back().emplace_back(numbers[columns - 2], numbers[columns - 1]);
    }
    return lines;
}

bool is_cut(const QPointF& a, const QPointF& b) {
    constexpr double edge = 179.999;
    const bool along_meridian = std::abs(a.x()) >= edge && std::abs(b.x()) >= edge;
    const bool along_pole = a.y() <= -89.999 && b.y() <= -89.999;
    return along_meridian || along_pole;
}

QPainterPath repeated_around(const QPainterPath& path, const PlateCarree& map) {
    const double world = 360 * map.x_scale;
    QPainterPath all = path;
    all.addPath(path.translated(-world, 0));
    all.addPath(path.translated(world, 0));
    return all;
}

} // namespace

QPainterPath WorldLines::land(const PlateCarree& map) const {
    QPainterPath path;
    for (const Line& ring : rings) {
        path.moveTo(map.point(ring.front().x(), ring.front().y()));
        for (const QPointF& place : ring) {
            path.lineTo(map.point(place.x(), place.y()));
        }
        path.closeSubpath();
    }
    path = repeated_around(path, map);
    path.setFillRule(Qt::OddEvenFill);
    return path;
}

QPainterPath WorldLines::coast(const PlateCarree& map, double smallest) const {
    QPainterPath path;
    for (const Line& ring : rings) {
        const QRectF extent = QPolygonF(QList<QPointF>(ring.begin(), ring.end())).boundingRect();
        if (extent.width() < smallest && extent.height() < smallest) {
            continue;
        }
        bool is_drawing = false;
        for (std::size_t end = 1; end < ring.size(); ++end) {
            const QPointF& a = ring[end - 1];
            const QPointF& b = ring[end];
            if (is_cut(a, b)) {
                is_drawing = false;
                continue;
            }
            if (!is_drawing) {
                path.moveTo(map.point(a.x(), a.y()));
                is_drawing = true;
            }
            path.lineTo(map.point(b.x(), b.y()));
        }
    }
    return repeated_around(path, map);
}

QPainterPath WorldLines::border_path(const PlateCarree& map) const {
    QPainterPath path;
    for (const Line& border : borders) {
        path.moveTo(map.point(border.front().x(), border.front().y()));
        for (const QPointF& place : border) {
            path.lineTo(map.point(place.x(), place.y()));
        }
    }
    return path;
}

WorldLines read_world_lines(const std::filesystem::path& folder) {
    return {read_lines(folder / "land-50m.csv", 4), read_lines(folder / "borders-110m.csv", 3)};
}

} // namespace halvane
