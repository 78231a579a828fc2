// SPDX-License-Identifier: MIT
#include "timetable/paperview.h"

#include "timetable/pageframe.h"

#include <QPainter>
#include <QScreen>
#include <algorithm>
#include <cmath>
#include <utility>

namespace halvane {

namespace {

constexpr int usual_width = 420; // [device independent pixels]
constexpr int least_width = 280; // [device independent pixels]

} // namespace

PaperView::PaperView(QWidget* parent) : QWidget(parent) {
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void PaperView::show_pages(PaintedPages pages) {
    const bool other_form = pages.paper != pages_.paper;
    pages_ = std::move(pages);
    show_page(0);
    if (other_form)
        updateGeometry();
}

void PaperView::show_page(int number) {
    number_ = std::clamp(number, 0, std::max(0, pages() - 1));
    picture_ = {};
    update();
}

int PaperView::heightForWidth(int width) const {
    const QSizeF paper = paper_size(pages_.paper);
    return static_cast<int>(std::lround(width * paper.height() / paper.width()));
}

QSize PaperView::sizeHint() const {
    return {usual_width, heightForWidth(usual_width)};
}

QSize PaperView::minimumSizeHint() const {
    return {least_width, heightForWidth(least_width)};
}

QSize PaperView::picture_size() const {
    return QSize(width(), heightForWidth(width())) * devicePixelRatioF();
}

QPixmap PaperView::painted() const {
    QPixmap picture(picture_size());
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture.fill(Qt::white);
    if (pages_.count == 0)
        return picture;
    QPainter painter(&picture);
    pages_.paint(painter, QRectF(0, 0, width(), heightForWidth(width())), number_ + 1);
    return picture;
}

void PaperView::paintEvent(QPaintEvent* /*event*/) {
    if (picture_.size() != picture_size())
        picture_ = painted();
    QPainter(this).drawPixmap(0, 0, picture_);
}

void show_whole_page(QWidget& window, const QWidget& area, const PaperView& view) {
    constexpr double of_the_screen = 0.9;
    constexpr int readable_width = 620;
    const QSize screen_room = window.screen()->availableSize() * of_the_screen;
    const QSize page(readable_width, view.heightForWidth(readable_width));
    const QSize whole = window.size() + (page - area.minimumSize()).expandedTo(QSize(0, 0));
    window.resize(whole.boundedTo(screen_room).expandedTo(window.size()));
}

} // namespace halvane
