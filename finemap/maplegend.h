// SPDX-License-Identifier: MIT
#pragma once

#include "finemap/finemappainter.h"
#include "timetable/pageframe.h"

#include <QPainter>
#include <QRectF>
#include <functional>
#include <string>
#include <vector>

namespace halvane {

/// What the signs of a map mean, in columns. Lengths are page units.
class MapLegend {
public:
    /// In     map    whose classes, lines and places are explained
    ///        width  of the legend
    MapLegend(const FineMapPainter& map, double width);

    double height() const { return height_; }
    /// In     corner  upper left
    void paint(QPainter& painter, const QPointF& corner) const;

private:
    struct Item {
        std::function<void(QPainter& painter, const QRectF& sign)> paint_sign;
        std::string words;
    };
    void add_classes(const FineMapPainter& map);
    void add_lines(const FineMapPainter& map);
    void add_places(const FineMapPainter& map);
    double item_height(const Item& item) const;
    void paint_item(QPainter& painter, const Item& item, const QRectF& place) const;
    template <class Visit>
    void each_place(Visit visit) const;

    Language language_;
    double width_;
    std::size_t columns_;
    double height_ = 0;
    std::vector<Item> items_;
};

} // namespace halvane
