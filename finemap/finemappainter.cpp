// SPDX-License-Identifier: MIT
#include "finemap/finemappainter.h"

#include "base/numberformat.h"
#include "finemap/maplabels.h"
#include "finemap/markplaces.h"
#include "finemap/markshapes.h"
#include "timetable/pageframe.h"

#include <QPaintEngine>
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace halvane {
namespace {

constexpr double millimetre = page_units;
constexpr double mark_size = 0.95 * millimetre;
constexpr double mark_spacing = 11 * millimetre;

constexpr QColor coast_colour{0x2A, 0x2F, 0x37};
constexpr QColor border_colour{0x5E, 0x64, 0x6C};
constexpr QColor grid_colour{0xB4, 0xBC, 0xC4};
constexpr QColor zone_border_colour{0x14, 0x18, 0x1E};
constexpr QColor moon_line_colour{0x8E, 0x10, 0x22};
constexpr QColor conjunction_line_colour{0x2A, 0x14, 0x0A};
constexpr QColor place_colour{0x10, 0x14, 0x1A};
constexpr QColor users_place_colour{0xC0, 0x00, 0x30};

QPen round_pen(const QColor& colour, double width, const QList<qreal>& dashes = {}) {
    QPen pen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    if (!dashes.isEmpty()) {
        pen.setCapStyle(Qt::FlatCap);
        pen.setDashPattern(dashes);
    }
    return pen;
}

/// The least and the greatest of a quantity on a map, or on what it has of the middle latitudes: near the
/// poles lags grow without measure. The least is above the greatest where there is none.
std::pair<float, float> range_of(const FineMap& map, MapQuantity quantity) {
    float least = std::numeric_limits<float>::max();
    float greatest = std::numeric_limits<float>::lowest();
    constexpr double farthest = 60;
    const bool has_middle = map.settings.window.south < farthest && map.settings.window.north > -farthest;
    for (const MapPart& part : map.parts)
        for (std::size_t row = 0; row < part.rows; ++row) {
            if (has_middle && std::fabs(part.latitude(row)) > farthest)
                continue;
            for (std::size_t column = 0; column < part.columns; ++column) {
                const float value = quantity_of(part.at(column, row), quantity);
                if (std::isfinite(value)) {
                    least = std::min(least, value);
                    greatest = std::max(greatest, value);
                }
            }
        }
    return {least, greatest};
}

/// How far lines of equal value are apart, so that there are no more than a dozen.
double chosen_interval(double range) {
    constexpr double most_lines = 12;
    constexpr std::array<double, 12> intervals{0.1, 0.2, 0.5, 1, 2, 5, 10, 15, 20, 30, 60, 120};
    const auto* const found = std::find_if(intervals.begin(), intervals.end(),
                                           [range](double every) { return range / every <= most_lines; });
    return found == intervals.end() ? intervals.back() : *found;
}

ValueLines value_lines_of(const FineMap& map, MapQuantity quantity) {
    const auto [least, greatest] = range_of(map, quantity);
    if (least > greatest)
        return {quantity, 0, {}};
    const double every = chosen_interval(double{greatest} - double{least});
    std::vector<MapLine> lines = map_lines(map, quantity, every);
    const bool has_own_border = quantity == MapQuantity::lag || quantity == MapQuantity::age;
    std::erase_if(lines, [&, lowest = least, highest = greatest](const MapLine& line) {
        return line.level < double{lowest} || line.level > double{highest} ||
               (line.level == 0 && has_own_border);
    });
    return {quantity, every, std::move(lines)};
}

/// "10 min", "6°"
std::string value_text(MapQuantity quantity, double level, Language language) {
    const std::string unit = unit_of(quantity).in(language);
    constexpr const char* left_to_right = "\u200E"; // keeps a minus sign before its number in Arabic
    return left_to_right + plain_number(std::round(level * 10) / 10) + (unit == "°" ? "" : " ") + unit;
}

/// Between the lines of a grid in a window of so many units for a degree                          [deg]
double grid_interval(double scale) {
    constexpr double least_gap = 14 * millimetre;
    constexpr std::array<double, 7> intervals{1, 2, 5, 10, 15, 30, 60};
    const auto* const found = std::find_if(intervals.begin(), intervals.end(),
                                           [scale](double every) { return every * scale >= least_gap; });
    return found == intervals.end() ? intervals.back() : *found;
}

/// The multiples of `every` from `first` to `last`.
template <class Visit>
void each_multiple(double first, double last, double every, Visit visit) {
    for (double number = std::ceil(first / every); number * every <= last; ++number)
        visit(number * every);
}

/// The interval of the grid of a frame                                                            [deg]
double grid_interval(const MapFrame& frame) {
    return grid_interval(std::min(frame.x_scale(), frame.y_scale()));
}

/// Whether a painter draws dots, and not the lines of a file.
bool is_picture(const QPainter& painter) {
    const QPaintEngine* const engine = painter.paintEngine();
    return engine != nullptr && engine->type() == QPaintEngine::Raster;
}

/// How exactly a painter draws: to a dot of a picture; in the lines of a file to 0.03 mm, and points that lie
/// within 0.12 mm are one.
DrawnPrecision precision_of(const QPainter& painter) {
    constexpr DrawnPrecision of_lines{0.12 * millimetre, 0.03 * millimetre};
    if (!is_picture(painter))
        return of_lines;
    constexpr double of_dot = 0.8;
    return {of_dot / std::max(painter.worldTransform().m11(), 1e-6), 0};
}

void fill(QPainter& painter, const QPainterPath& path, const QColor& colour) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour); // fillPath writes longer numbers into files
    painter.drawPath(path);
}

} // namespace

QColor colour_of(const ClassColour& colour, double opacity) {
    QColor made(colour.red, colour.green, colour.blue);
    made.setAlphaF(static_cast<float>(opacity));
    return made;
}

double mark_radius() {
    return mark_size;
}

QPen pen_of(NamedBorder border) {
    switch (border) {
    case NamedBorder::moon_with_sun:
        return round_pen(moon_line_colour, 0.55 * millimetre);
    case NamedBorder::conjunction_at_sun:
        return round_pen(conjunction_line_colour, 0.55 * millimetre, {3, 1.6});
    case NamedBorder::none:
        break;
    }
    return round_pen(zone_border_colour, 0.26 * millimetre);
}

QPen pen_of(MapQuantity quantity) {
    constexpr double width = 0.22 * millimetre;
    switch (quantity) {
    case MapQuantity::lag:
        return round_pen({0x0B, 0x3C, 0x8C}, width);
    case MapQuantity::age:
        return round_pen({0x6B, 0x2E, 0x00}, width, {6, 3});
    case MapQuantity::altitude:
        return round_pen({0x00, 0x4D, 0x40}, width, {7, 2.5, 1.2, 2.5});
    case MapQuantity::elongation:
        break;
    }
    return round_pen({0x5A, 0x00, 0x6E}, width, {1.5, 2});
}

void paint_place_mark(QPainter& painter, const QPointF& point, bool is_users) {
    const double radius = (is_users ? 0.8 : 0.6) * millimetre;
    painter.setPen(QPen(Qt::white, 0.3 * millimetre));
    painter.setBrush(is_users ? users_place_colour : place_colour);
    painter.drawEllipse(point, radius, radius);
}

FineMapPainter::FineMapPainter(const FineMap& map, const WorldOutline& world, MapLook look)
    : map_(map), world_(world), look_(std::move(look)), borders_(borders_of(map)) {
    for (const MapQuantity quantity : look_.lines)
        value_lines_.push_back(value_lines_of(map, quantity));
}

void FineMapPainter::paint(QPainter& painter, const MapFrame& frame, const QRectF& visible) const {
    const MapGeometry geometry(frame, visible, precision_of(painter));
    if (geometry.visible().isEmpty())
        return;
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    paint_ground(painter, geometry, frame);
    paint_zones(painter, geometry);
    paint_outlines(painter, geometry);
    paint_zone_marks(painter, geometry, frame);
    for (const ValueLines& group : value_lines_)
        for (const MapLine& line : group.lines)
            painter.strokePath(geometry.line(line.points, line.closed), pen_of(group.quantity));

    paint_words(painter, geometry, frame);
    painter.restore();
}

void FineMapPainter::paint_ground(QPainter& painter, const MapGeometry& geometry,
                                  const MapFrame& frame) const {
    const QRectF& seen = geometry.visible();
    painter.fillRect(seen, colour_of(map_sea));
    fill(painter, geometry.land(world_), colour_of(map_land));
    painter.setPen(QPen(grid_colour, 0.12 * millimetre));
    const double every = grid_interval(frame);
    each_multiple(frame.longitude(seen.left()), frame.longitude(seen.right()), every, [&](double longitude) {
        painter.drawLine(QPointF(frame.x(longitude), seen.top()), QPointF(frame.x(longitude), seen.bottom()));
    });
    each_multiple(frame.latitude(seen.bottom()), frame.latitude(seen.top()), every, [&](double latitude) {
        painter.drawLine(QPointF(seen.left(), frame.y(latitude)), QPointF(seen.right(), frame.y(latitude)));
    });
}

void FineMapPainter::paint_zones(QPainter& painter, const MapGeometry& geometry) const {
    for (const MapZone& zone : map_.zones) {
        const MapStyle style = style_of(*map_.settings.criterion, zone.map_class);
        fill(painter, geometry.zone(zone), colour_of(style.colour, zone_opacity));
    }
}

void FineMapPainter::paint_outlines(QPainter& painter, const MapGeometry& geometry) const {
    painter.strokePath(geometry.borders(world_), round_pen(border_colour, 0.12 * millimetre));
    painter.strokePath(geometry.coast(world_), round_pen(coast_colour, 0.14 * millimetre));
    for (const NamedBorder name :
         {NamedBorder::none, NamedBorder::moon_with_sun, NamedBorder::conjunction_at_sun})
        for (const MapBorder& border : borders_)
            if (named_border(border.one, border.other) == name)
                painter.strokePath(geometry.line(border.points, border.closed), pen_of(name));
}

void FineMapPainter::paint_zone_marks(QPainter& painter, const MapGeometry& geometry,
                                      const MapFrame& frame) const {
    const QRectF near = geometry.visible().adjusted(-mark_size, -mark_size, mark_size, mark_size);
    for (const PlacedMark& mark : mark_places(map_, frame, {mark_spacing, mark_size})) {
        const QPointF point = geometry.point(mark.position);
        if (near.contains(point))
            paint_mark(painter, style_of(*map_.settings.criterion, mark.map_class).mark, point, mark_size);
    }
}

void FineMapPainter::paint_words(QPainter& painter, const MapGeometry& geometry,
                                 const MapFrame& frame) const {
    const QRectF whole(frame.left, frame.top, frame.width, frame.height);
    MapLabels labels(painter, whole, geometry.visible());
    paint_places(painter, geometry, frame, labels);
    for (const MapBorder& border : borders_) {
        const NamedBorder name = named_border(border.one, border.other);
        if (name != NamedBorder::none)
            labels.write_along(geometry.drawn(border.points, border.closed),
                               words_of(name, map_.settings.kind).in(look_.language), look_.language,
                               pen_of(name).color());
    }
    for (const ValueLines& group : value_lines_)
        for (const MapLine& line : group.lines)
            labels.write_along(geometry.drawn(line.points, line.closed),
                               value_text(group.quantity, line.level, look_.language), look_.language,
                               pen_of(group.quantity).color());
}

void FineMapPainter::paint_places(QPainter& painter, const MapGeometry& geometry, const MapFrame& frame,
                                  MapLabels& labels) const {
    constexpr double room = 0.9 * millimetre;
    std::vector<std::pair<QPointF, const MarkedPlace*>> shown;
    for (const MarkedPlace& place : look_.places) {
        const MapPosition position{longitude_in(frame.window, place.position.longitude),
                                   place.position.latitude};
        if (holds(frame.window, position))
            shown.emplace_back(geometry.point(position), &place);
    }
    for (const auto& [point, place] : shown)
        labels.keep_free({point - QPointF(room, room), QSizeF(2 * room, 2 * room)});
    for (const auto& [point, place] : shown) {
        paint_place_mark(painter, point, place->is_users);
        labels.write_beside(point, millimetre, place->name, look_.language, place_colour);
    }
}

void FineMapPainter::paint_degrees(QPainter& painter, const MapFrame& frame) const {
    const PageFont font = page_font(6.5, false, PageColours::quiet);
    const double every = grid_interval(frame);
    const double gap = 1 * millimetre;
    painter.setPen(QPen(PageColours::ink, 0.25 * millimetre));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(frame.left, frame.top, frame.width, frame.height));
    each_multiple(frame.window.west, frame.window.east, every, [&](double longitude) {
        PageText(longitude_text(longitude, look_.language), font, look_.language)
            .draw(painter, {frame.x(longitude), frame.bottom() + gap + 0.8 * em_of(font)},
                  LineAnchor::centre);
    });
    each_multiple(frame.window.south, frame.window.north, every, [&](double latitude) {
        PageText(latitude_text(latitude, look_.language), font, look_.language)
            .draw(painter, {frame.left - gap, frame.y(latitude) + 0.35 * em_of(font)}, LineAnchor::right);
    });
}

} // namespace halvane
