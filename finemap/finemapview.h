// SPDX-License-Identifier: MIT
#pragma once

#include "finemap/shownmap.h"

#include <QPixmap>
#include <QPoint>
#include <QWidget>
#include <memory>
#include <optional>

namespace halvane {

/// A fine map that can be enlarged and moved, painted by the painter of its files. Never mirrored.
class FineMapView : public QWidget {
    Q_OBJECT
public:
    explicit FineMapView(QWidget* parent = nullptr);

    /// Shows a map, or none; the part of the world stays, unless the map's window is another.
    void show_map(ShownMapPointer map);
    /// The map that is shown; null when there is none.
    const FineMap* map() const { return shown_ == nullptr ? nullptr : &shown_->map(); }

    /// Shows all of the map.
    void show_whole();
    /// Enlarges by a factor, the point of the widget kept in its place.
    void enlarge(double factor, const QPointF& about);
    /// Moves what is shown [device independent pixels].
    void move_by(const QPointF& way);
    /// Where the picked place is; nothing takes its mark away.
    void mark_picked(const std::optional<MapPosition>& place);

    /// What is shown of the map, and where in the widget [device independent pixels].
    MapFrame frame() const;
    /// The place at a point of the widget; nothing beside the map.
    std::optional<MapPosition> place_at(const QPointF& point) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    /// The mouse, or the cross that keys move the map under, stands over a place, or over none.
    void pointed(const std::optional<halvane::MapPosition>& place);
    /// A click, or Space for the place under the cross.
    void picked(const halvane::MapPosition& place);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    double least_scale() const;
    QPointF middle() const;
    void hold_within_map();
    void refresh();
    void point_at_cross();
    QPixmap painted() const;
    void paint_cross(QPainter& painter) const;
    void paint_picked(QPainter& painter) const;

    ShownMapPointer shown_;
    MapWindow window_; ///< of the map that is shown, or was
    MapPosition centre_;
    double scale_ = 0; ///< device independent pixels for a degree; 0 for all of the map
    std::optional<MapPosition> picked_;
    std::optional<QPointF> pressed_; ///< where a button went down
    QPointF dragged_from_;
    bool is_dragging_ = false;
    bool shows_cross_ = false;
    QPixmap picture_; ///< null: to be painted
};

} // namespace halvane
