// SPDX-License-Identifier: MIT
#pragma once

#include "crescent/mapmarks.h"
#include "crescent/mapsheet.h"

#include <QImage>
#include <QPixmap>
#include <QWidget>
#include <cstddef>
#include <optional>
#include <vector>

namespace halvane {

/// Draws the circle of a point in picture units: of radius 2 with a line 1 wide, at the nearest whole pixel
/// when edges are not smoothed.
void draw_map_circle(QPainter& painter, const MapPixel& centre, const ClassColour& colour);

/// The colours of a mark, and where and how large it stands.
struct MarkLook {
    QPointF centre;
    double scale = 1; ///< 1 is for the map at its own size
    ClassColour colour = MapSheet::ink;
    ClassColour rim = MapSheet::paper;
};

/// Draws the mark of a class: its figure with a rim, so that it can be read over circles of any colour.
void draw_map_mark(QPainter& painter, char figure, const MarkLook& look);

/// The world map of a panel at any size: the picture scaled with its aspect kept, and the points drawn over
/// it in vectors. Never mirrored.
class MapView : public QWidget {
    Q_OBJECT
public:
    explicit MapView(QWidget* parent = nullptr);

    /// Shows a clean map; the points of the run before are gone.
    void show_map(const QImage& map);
    /// Paints one more point; it appears with the next pass of the event loop.
    void add_point(const MapPoint& point);

    /// Marks the classes of what is painted.
    void show_marks();

    const std::vector<MapPoint>& points() const { return points_; }
    const QImage& map() const { return map_; }
    const std::vector<MapMark>& marks() const { return marks_; }
    /// The class found nearest to a pixel of the picture; none where nothing has been drawn.
    std::optional<VisibilityClass> class_at(double x, double y) const { return classes_.nearest(x, y); }
    /// The area of the widget that the map fills.
    QRectF map_area() const;

    QSize sizeHint() const override { return {map_width, map_height}; }
    QSize minimumSizeHint() const override { return {map_width / 2, map_height / 2}; }

signals:
    /// The mouse stands over a pixel of the picture, counted from 0, or has left the widget.
    void mouse_over(double x, double y);
    void mouse_left();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    /// Where the middle of a pixel of the picture lies on the widget.
    QPointF place_of(const MapPixel& at) const;
    double scale() const { return map_area().width() / map_width; }
    void refresh_layer();
    void paint_new_points();

    QImage map_;
    std::vector<MapPoint> points_;
    QPixmap layer_;                 ///< map and painted points at the screen's resolution
    std::vector<MapPoint> circles_; ///< the coloured points, each place once
    std::size_t painted_ = 0;       ///< so many circles are in the layer
    MapClasses classes_;
    std::vector<MapMark> marks_;
};

} // namespace halvane
