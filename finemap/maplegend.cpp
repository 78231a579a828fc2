// SPDX-License-Identifier: MIT
#include "finemap/maplegend.h"

#include "base/numberformat.h"
#include "finemap/markshapes.h"

#include <algorithm>
#include <cstddef>

namespace halvane {
namespace {

constexpr double millimetre = page_units;
constexpr double sign_width = 9 * millimetre;
constexpr double sign_height = 4 * millimetre;
constexpr double between_signs = 0.9 * millimetre;
constexpr double beside_sign = 1.6 * millimetre;
constexpr double least_column = 64 * millimetre;
constexpr double between_items = 4 * millimetre;

PageFont legend_font() {
    return page_font(8, false);
}

/// A zone's colour over land and over sea, with its mark.
void paint_swatch(QPainter& painter, const QRectF& sign, const MapStyle& style) {
    QRectF half = sign;
    half.setWidth(sign.width() / 2);
    painter.fillRect(half, colour_of(map_land));
    painter.fillRect(half.translated(half.width(), 0), colour_of(map_sea));
    painter.fillRect(sign, colour_of(style.colour, zone_opacity));
    painter.setPen(pen_of(NamedBorder::none));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(sign);
    paint_mark(painter, style.mark, sign.center(), mark_radius());
}

void paint_sample(QPainter& painter, const QRectF& sign, const QPen& pen) {
    painter.setPen(pen);
    painter.drawLine(QPointF(sign.left(), sign.center().y()), QPointF(sign.right(), sign.center().y()));
}

std::string words_of(const ValueLines& lines, Language language) {
    const std::string unit = unit_of(lines.quantity).in(language);
    const std::string every = plain_number(lines.every) + (unit == "°" ? "" : " ") + unit;
    const TwinText between{", every ", "، كل "};
    return halvane::words_of(lines.quantity).in(language) + (between.in(language) + every);
}

} // namespace

MapLegend::MapLegend(const FineMapPainter& map, double width)
    : language_(map.look().language), width_(width),
      columns_(std::max<std::size_t>(1, static_cast<std::size_t>(width / least_column))) {
    add_classes(map);
    add_lines(map);
    add_places(map);
    each_place(
        [this](const Item& /*item*/, const QRectF& place) { height_ = std::max(height_, place.bottom()); });
}

void MapLegend::add_classes(const FineMapPainter& map) {
    const FineMapSettings& settings = map.map().settings;
    for (const MapClass map_class : legend_classes(*settings.criterion)) {
        const MapStyle style = style_of(*settings.criterion, map_class);
        items_.push_back(
            {[style](QPainter& painter, const QRectF& sign) { paint_swatch(painter, sign, style); },
             halvane::words_of(*settings.criterion, map_class, settings.kind).in(language_)});
    }
}

void MapLegend::add_lines(const FineMapPainter& map) {
    for (const NamedBorder border : {NamedBorder::moon_with_sun, NamedBorder::conjunction_at_sun})
        items_.push_back(
            {[border](QPainter& painter, const QRectF& sign) { paint_sample(painter, sign, pen_of(border)); },
             halvane::words_of(border, map.map().settings.kind).in(language_)});
    for (const ValueLines& lines : map.value_lines()) {
        const MapQuantity quantity = lines.quantity;
        items_.push_back({[quantity](QPainter& painter, const QRectF& sign) {
                              paint_sample(painter, sign, pen_of(quantity));
                          },
                          words_of(lines, language_)});
    }
}

void MapLegend::add_places(const FineMapPainter& map) {
    for (const MarkedPlace& place : map.look().places)
        if (place.is_users)
            items_.push_back({[](QPainter& painter, const QRectF& sign) {
                                  paint_place_mark(painter, sign.center(), true);
                              },
                              TwinText{"Your place: ", "موقعك: "}.in(language_) + place.name});
}

double MapLegend::item_height(const Item& item) const {
    const double words_width =
        width_ / static_cast<double>(columns_) - between_items - sign_width - beside_sign;
    const double words = PageText(item.words, legend_font(), language_, words_width).height();
    return std::max(words, sign_height) + between_signs;
}

/// Gives each item its place from the legend's upper left corner, column by column.
template <class Visit>
void MapLegend::each_place(Visit visit) const {
    const std::size_t rows = (items_.size() + columns_ - 1) / columns_;
    const double column_width = width_ / static_cast<double>(columns_);
    double top = 0;
    for (std::size_t i = 0; i < items_.size(); ++i) {
        const std::size_t column = i / rows;
        top = i % rows == 0 ? 0 : top;
        const std::size_t shown = language_ == Language::arabic ? columns_ - 1 - column : column;
        const double height = item_height(items_[i]);
        visit(items_[i], QRectF(static_cast<double>(shown) * column_width, top, column_width, height));
        top += height;
    }
}

void MapLegend::paint(QPainter& painter, const QPointF& corner) const {
    each_place(
        [&](const Item& item, const QRectF& place) { paint_item(painter, item, place.translated(corner)); });
}

void MapLegend::paint_item(QPainter& painter, const Item& item, const QRectF& place) const {
    const bool mirrored = language_ == Language::arabic;
    const QRectF sign(mirrored ? place.right() - sign_width : place.left(), place.top(), sign_width,
                      sign_height);
    item.paint_sign(painter, sign);
    const PageSide side =
        mirrored ? PageSide{language_, place.left() + between_items, sign.left() - beside_sign}
                 : PageSide{language_, sign.right() + beside_sign, place.right() - between_items};
    const PageFont font = legend_font();
    const double first_line = PageText("A", font, language_).height();
    SideWriter(&painter, side).write(item.words, font, place.top() + (sign_height - first_line) / 2);
}

} // namespace halvane
