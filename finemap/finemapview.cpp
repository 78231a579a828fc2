// SPDX-License-Identifier: MIT
#include "finemap/finemapview.h"

#include "timetable/pagetext.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace halvane {

namespace {

constexpr double greatest_scale = 400; // device independent pixels for a degree
constexpr double step_of_enlarging = 1.25;

} // namespace

FineMapView::FineMapView(QWidget* parent) : QWidget(parent) {
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setLayoutDirection(Qt::LeftToRight);
    setCursor(Qt::CrossCursor);
}

void FineMapView::show_map(ShownMapPointer map) {
    shown_ = std::move(map);
    if (shown_ != nullptr && !(window_ == shown_->map().settings.window)) {
        window_ = shown_->map().settings.window;
        show_whole();
    }
    refresh();
}

void FineMapView::show_whole() {
    scale_ = 0;
    centre_ = {(window_.west + window_.east) / 2, (window_.south + window_.north) / 2};
    refresh();
}

/// At which all of the map fits.
double FineMapView::least_scale() const {
    return std::min(width() / (window_.east - window_.west), height() / (window_.north - window_.south));
}

QPointF FineMapView::middle() const {
    return {width() / 2.0, height() / 2.0};
}

void FineMapView::enlarge(double factor, const QPointF& about) {
    if (shown_ == nullptr)
        return;
    const double before = std::max(scale_, least_scale());
    const double now = std::clamp(before * factor, least_scale(), std::max(greatest_scale, least_scale()));
    const QPointF off = about - middle();
    centre_.longitude += off.x() * (1 / before - 1 / now);
    centre_.latitude -= off.y() * (1 / before - 1 / now);
    scale_ = now > least_scale() ? now : 0;
    hold_within_map();
    refresh();
}

void FineMapView::move_by(const QPointF& way) {
    if (shown_ == nullptr || scale_ == 0)
        return;
    centre_.longitude -= way.x() / scale_;
    centre_.latitude += way.y() / scale_;
    hold_within_map();
    refresh();
}

/// Keeps the map's sides at or beyond those of the widget, or the map in the middle where it is smaller.
void FineMapView::hold_within_map() {
    const auto held = [](double centre, double first, double last, double half) {
        return last - first < 2 * half ? (first + last) / 2 : std::clamp(centre, first + half, last - half);
    };
    const double scale = std::max(scale_, least_scale());
    centre_.longitude = held(centre_.longitude, window_.west, window_.east, width() / scale / 2);
    centre_.latitude = held(centre_.latitude, window_.south, window_.north, height() / scale / 2);
}

void FineMapView::mark_picked(const std::optional<MapPosition>& place) {
    picked_ = place;
    update();
}

MapFrame FineMapView::frame() const {
    MapFrame frame;
    if (shown_ == nullptr)
        return frame;
    const MapWindow& whole = window_;
    const double scale = std::max(scale_, least_scale());
    const double half_width = width() / scale / 2;
    const double half_height = height() / scale / 2;
    frame.window = {std::max(whole.west, centre_.longitude - half_width),
                    std::max(whole.south, centre_.latitude - half_height),
                    std::min(whole.east, centre_.longitude + half_width),
                    std::min(whole.north, centre_.latitude + half_height)};
    frame.left = width() / 2.0 + (frame.window.west - centre_.longitude) * scale;
    frame.top = height() / 2.0 + (centre_.latitude - frame.window.north) * scale;
    frame.width = (frame.window.east - frame.window.west) * scale;
    frame.height = (frame.window.north - frame.window.south) * scale;
    return frame;
}

std::optional<MapPosition> FineMapView::place_at(const QPointF& point) const {
    if (shown_ == nullptr)
        return std::nullopt;
    const MapFrame shown = frame();
    const MapPosition place{shown.longitude(point.x()), shown.latitude(point.y())};
    return holds(shown.window, place) ? std::optional(place) : std::nullopt;
}

QSize FineMapView::sizeHint() const {
    return {720, 360};
}

QSize FineMapView::minimumSizeHint() const {
    return {360, 180};
}

void FineMapView::refresh() {
    picture_ = {};
    update();
}

/// The map at the screen's resolution. The painter's lengths are those of a page.
QPixmap FineMapView::painted() const {
    constexpr double millimetres_of_inch = 25.4;
    const double unit = logicalDpiX() / (millimetres_of_inch * page_units);
    QPixmap picture(size() * devicePixelRatioF());
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture.fill(palette().color(QPalette::Window));
    MapFrame shown = frame();
    for (double* length : {&shown.left, &shown.top, &shown.width, &shown.height})
        *length /= unit;
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(unit, unit);
    shown_->painter().paint(painter, shown, QRectF(QPointF(), QSizeF(size()) / unit));
    return picture;
}

void FineMapView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (shown_ == nullptr)
        return;
    if (picture_.isNull())
        picture_ = painted();
    painter.drawPixmap(0, 0, picture_);
    painter.setRenderHint(QPainter::Antialiasing);
    paint_picked(painter);
    if (shows_cross_)
        paint_cross(painter);
    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

void FineMapView::paint_cross(QPainter& painter) const {
    constexpr double arm = 9;
    for (const auto& [colour, width] :
         {std::pair{QColor(Qt::white), 4.0}, std::pair{QColor(Qt::black), 1.5}}) {
        painter.setPen(QPen(colour, width));
        painter.drawLine(middle() - QPointF(arm, 0), middle() + QPointF(arm, 0));
        painter.drawLine(middle() - QPointF(0, arm), middle() + QPointF(0, arm));
    }
}

void FineMapView::paint_picked(QPainter& painter) const {
    constexpr double radius = 6;
    const MapFrame shown = frame();
    if (!picked_ || !holds(shown.window, *picked_))
        return;
    const QPointF point(shown.x(picked_->longitude), shown.y(picked_->latitude));
    painter.setBrush(Qt::NoBrush);
    for (const auto& [colour, width] :
         {std::pair{QColor(Qt::white), 4.5}, std::pair{QColor(Qt::black), 2.0}}) {
        painter.setPen(QPen(colour, width));
        painter.drawEllipse(point, radius, radius);
    }
}

bool FineMapView::event(QEvent* event) {
    const bool look_changes = event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange ||
                              event->type() == QEvent::ScreenChangeInternal;
    if (look_changes)
        refresh();
    return QWidget::event(event);
}

void FineMapView::resizeEvent(QResizeEvent* event) {
    hold_within_map();
    refresh();
    QWidget::resizeEvent(event);
}

void FineMapView::wheelEvent(QWheelEvent* event) {
    constexpr double notch = 120;
    const double notches = event->angleDelta().y() / notch;
    enlarge(std::pow(step_of_enlarging, notches), event->position());
    emit pointed(place_at(event->position()));
    event->accept();
}

void FineMapView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    pressed_ = event->position();
    dragged_from_ = event->position();
    is_dragging_ = false;
    shows_cross_ = false;
    update();
}

void FineMapView::mouseMoveEvent(QMouseEvent* event) {
    if (pressed_) {
        const QPointF way = event->position() - *pressed_;
        is_dragging_ = is_dragging_ || way.manhattanLength() >= QApplication::startDragDistance();
        if (is_dragging_) {
            move_by(event->position() - dragged_from_);
            dragged_from_ = event->position();
            return;
        }
    }
    emit pointed(place_at(event->position()));
}

void FineMapView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !pressed_)
        return;
    pressed_.reset();
    if (is_dragging_)
        return;
    if (const std::optional<MapPosition> place = place_at(event->position()))
        emit picked(*place);
}

void FineMapView::leaveEvent(QEvent* event) {
    emit pointed(std::nullopt);
    QWidget::leaveEvent(event);
}

void FineMapView::point_at_cross() {
    shows_cross_ = true;
    update();
    emit pointed(place_at(middle()));
}

void FineMapView::keyPressEvent(QKeyEvent* event) {
    constexpr double part = 0.1; // of the widget, by which an arrow moves
    switch (event->key()) {
    case Qt::Key_Left:
        move_by({width() * part, 0});
        break;
    case Qt::Key_Right:
        move_by({-width() * part, 0});
        break;
    case Qt::Key_Up:
        move_by({0, height() * part});
        break;
    case Qt::Key_Down:
        move_by({0, -height() * part});
        break;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        enlarge(step_of_enlarging, middle());
        break;
    case Qt::Key_Minus:
        enlarge(1 / step_of_enlarging, middle());
        break;
    case Qt::Key_Home:
        show_whole();
        break;
    case Qt::Key_Space:
        if (const std::optional<MapPosition> place = place_at(middle()))
            emit picked(*place);
        break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    point_at_cross();
}

void FineMapView::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
        point_at_cross();
}

void FineMapView::focusOutEvent(QFocusEvent* event) {
    shows_cross_ = false;
    QWidget::focusOutEvent(event);
}

} // namespace halvane
