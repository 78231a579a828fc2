// SPDX-License-Identifier: MIT
#include "crescent/mapview.h"

#include "crescent/mapimage.h"

#include <QFontDatabase>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

namespace halvane {

void draw_map_circle(QPainter& painter, const MapPixel& centre, const ClassColour& colour) {
    constexpr double pixel_centre = 0.5;
    painter.setPen(QPen(shown(colour), 1));
    if (painter.testRenderHint(QPainter::Antialiasing))
        painter.drawEllipse(QPointF(centre.x + pixel_centre, centre.y + pixel_centre), map_point_radius,
                            map_point_radius);
    else
        painter.drawEllipse(QPoint(qRound(centre.x), qRound(centre.y)), map_point_radius, map_point_radius);
}

void draw_map_mark(QPainter& painter, char figure, const MarkLook& look) {
    constexpr double rim = 4;
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(map_mark_height);
    font.setBold(true);
    QPainterPath path;
    path.addText(0, 0, font, QString(QLatin1Char(figure)));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(look.centre);
    painter.scale(look.scale, look.scale);
    painter.translate(-path.boundingRect().center());
    painter.strokePath(path, QPen(shown(look.rim), rim, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(path, shown(look.colour));
    painter.restore();
}

MapView::MapView(QWidget* parent) : QWidget(parent) {
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setSizePolicy(policy);
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
}

void MapView::show_map(const QImage& map) {
    map_ = map;
    points_.clear();
    circles_.clear();
    classes_ = {};
    marks_.clear();
    layer_ = {};
    update();
}

void MapView::add_point(const MapPoint& point) {
    points_.push_back(point);
    if (!classes_.add(point) || point.visibility == VisibilityClass::not_possible)
        return;
    circles_.push_back(point);
    const MapPixel at = map_pixel(point.longitude, point.latitude);
    const QPointF centre = place_of(at);
    const double reach = (map_point_radius + 2) * scale();
    const QRectF around(centre - QPointF(reach, reach), centre + QPointF(reach, reach));
    update(around.toAlignedRect());
}

void MapView::show_marks() {
    marks_ = map_marks(classes_);
    update();
}

QPointF MapView::place_of(const MapPixel& at) const {
    constexpr double pixel_centre = 0.5;
    return map_area().topLeft() + QPointF(at.x + pixel_centre, at.y + pixel_centre) * scale();
}

QRectF MapView::map_area() const {
    const double factor =
        std::min(width() / static_cast<double>(map_width), height() / static_cast<double>(map_height));
    const QSizeF size(map_width * factor, map_height * factor);
    return {QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size};
}

void MapView::refresh_layer() {
    const QSize wanted = (QSizeF(size()) * devicePixelRatioF()).toSize();
    if (layer_.size() == wanted && layer_.devicePixelRatio() == devicePixelRatioF())
        return;
    layer_ = QPixmap(wanted);
    layer_.setDevicePixelRatio(devicePixelRatioF());
    layer_.fill(Qt::transparent);
    painted_ = 0;
    QPainter painter(&layer_);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (!map_.isNull())
        painter.drawImage(map_area(), map_);
}

void MapView::paint_new_points() {
    QPainter painter(&layer_);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(map_area());
    painter.translate(map_area().topLeft());
    painter.scale(scale(), scale());
    for (; painted_ < circles_.size(); ++painted_)
        draw_map_circle(painter, map_pixel(circles_[painted_].longitude, circles_[painted_].latitude),
                        class_colour(circles_[painted_].visibility));
}

void MapView::paintEvent(QPaintEvent* event) {
    refresh_layer();
    paint_new_points();
    QPainter painter(this);
    painter.setClipRegion(event->region());
    painter.drawPixmap(0, 0, layer_);
    for (const MapMark& mark : marks_)
        draw_map_mark(painter, class_mark(mark.visibility), {place_of(mark.centre), std::max(scale(), 1.0)});
}

void MapView::mouseMoveEvent(QMouseEvent* event) {
    const QPointF at = (event->position() - map_area().topLeft()) / scale();
    emit mouse_over(at.x(), at.y());
}

void MapView::leaveEvent(QEvent*) {
    emit mouse_left();
}

} // namespace halvane
