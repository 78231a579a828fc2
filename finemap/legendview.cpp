// SPDX-License-Identifier: MIT
#include "finemap/legendview.h"

#include "finemap/maplegend.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace halvane {

namespace {

constexpr double edge = 150; // around the legend [page units]
constexpr int usual_width = 260;

} // namespace

LegendView::LegendView(QWidget* parent) : QWidget(parent) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void LegendView::show_legend(ShownMapPointer map) {
    shown_ = std::move(map);
    updateGeometry();
    update();
}

/// Device independent pixels for a unit of a page, on which letters are as large as the window's.
double LegendView::unit() const {
    constexpr double points_of_legend = 8;
    constexpr double page_units_of_point = 25.4 / 72 * page_units;
    return fontMetrics().height() / (points_of_legend * page_units_of_point) * 0.8;
}

int LegendView::heightForWidth(int width) const {
    if (shown_ == nullptr)
        return 0;
    const MapLegend legend(shown_->painter(), width / unit() - 2 * edge);
    return static_cast<int>(std::ceil((legend.height() + 2 * edge) * unit()));
}

QSize LegendView::sizeHint() const {
    return {usual_width, heightForWidth(usual_width)};
}

QSize LegendView::minimumSizeHint() const {
    return {usual_width / 2, 0};
}

void LegendView::paintEvent(QPaintEvent* /*event*/) {
    if (shown_ == nullptr)
        return;
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(unit(), unit());
    MapLegend(shown_->painter(), width() / unit() - 2 * edge).paint(painter, {edge, edge});
}

} // namespace halvane
