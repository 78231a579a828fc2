// SPDX-License-Identifier: MIT
#include "qibla/qiblahdial.h"

#include "panel/panelstyle.h"

#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <algorithm>

namespace halvane {

namespace {

constexpr double extent = dial_radius + 20; // circle and half its stroke [twip]
constexpr double circle_stroke = 18;
constexpr double tick_stroke = 10;
constexpr double line_stroke = 36;
constexpr double arrow_length = 170;
constexpr double arrow_half_width = 70;
constexpr double hub_radius = 42;
constexpr int wanted_diameter = 30; // [units of space]
constexpr int least_diameter = 18;  // [units of space]

} // namespace

void DialDrawing::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(width() / 2.0, height() / 2.0);
    const double scale = std::min(width(), height()) / (2 * extent);
    painter.scale(scale, scale);
    painter.translate(-dial_centre.x, -dial_centre.y);
    draw(painter);
}

void DialCircle::draw(QPainter& painter) const {
    constexpr int tick_step = 10;
    constexpr int long_tick_step = 30;
    const QPointF centre(dial_centre.x, dial_centre.y);
    painter.setBrush(palette().color(QPalette::Base));
    painter.setPen(QPen(palette().color(QPalette::WindowText), circle_stroke));
    painter.drawEllipse(centre, dial_radius, dial_radius);
    painter.translate(centre);
    painter.setPen(QPen(muted_colour(*this), tick_stroke));
    for (int angle = 0; angle < 360; angle += tick_step) {
        const double length = angle % long_tick_step == 0 ? 120 : 60;
        painter.drawLine(QPointF(0, -dial_radius), QPointF(0, -dial_radius + length));
        painter.rotate(tick_step);
    }
}

void DialLine::set_end(const DialPoint& end) {
    end_ = end;
    update();
}

void DialLine::draw(QPainter& painter) const {
    const QPointF centre(x1(), y1());
    const QPointF tip(x2(), y2());
    const QPointF along = (tip - centre) / dial_line_length;
    const QPointF across(-along.y(), along.x());
    const QPointF neck = tip - along * arrow_length;
    const QColor colour = accent_colour(*this);
    painter.setPen(QPen(colour, line_stroke, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(centre, neck);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(centre, hub_radius, hub_radius);
    painter.drawPolygon(QPolygonF({tip, neck + across * arrow_half_width, neck - across * arrow_half_width}));
}

QiblahDial::QiblahDial(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize QiblahDial::letter_room() const {
    QSize largest;
    for (const QLabel* any : findChildren<QLabel*>())
        largest = largest.expandedTo(any->sizeHint());
    return largest + QSize(gap(), gap());
}

int QiblahDial::gap() const {
    return space_unit(*this) / 2;
}

QSize QiblahDial::size_around(int diameter) const {
    return QSize(diameter, diameter) + 2 * letter_room();
}

QSize QiblahDial::sizeHint() const {
    return size_around(wanted_diameter * space_unit(*this));
}

QSize QiblahDial::minimumSizeHint() const {
    return size_around(least_diameter * space_unit(*this));
}

bool QiblahDial::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest) {
        updateGeometry();
        place_controls();
    }
    return QWidget::event(event);
}

void QiblahDial::resizeEvent(QResizeEvent* /*event*/) {
    place_controls();
}

void QiblahDial::place_controls() {
    const QSize inner = size() - 2 * letter_room();
    const int diameter = std::max(0, std::min(inner.width(), inner.height()));
    QRect circle(0, 0, diameter, diameter);
    circle.moveCenter(rect().center());
    for (auto* drawing : findChildren<DialDrawing*>())
        drawing->setGeometry(circle);
    const QRect around = circle.adjusted(-gap(), -gap(), gap(), gap());
    place_letter("lbln", around, [&](QRect& place) { place.moveBottom(around.top() - 1); });
    place_letter("lbls", around, [&](QRect& place) { place.moveTop(around.bottom() + 1); });
    place_letter("lble", around, [&](QRect& place) { place.moveLeft(around.right() + 1); });
    place_letter("lblw", around, [&](QRect& place) { place.moveRight(around.left() - 1); });
}

void QiblahDial::place_letter(const char* name, const QRect& around,
                              const std::function<void(QRect&)>& beside) {
    auto* label = findChild<QLabel*>(QString::fromLatin1(name));
    if (label == nullptr)
        return;
    QRect place(QPoint(), label->sizeHint());
    place.moveCenter(around.center());
    beside(place);
    label->setGeometry(place);
}

} // namespace halvane
