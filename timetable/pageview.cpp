// SPDX-License-Identifier: MIT
#include "timetable/pageview.h"

#include "timetable/pagepainter.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace halvane {

namespace {

constexpr int usual_width = 420; // [device independent pixels]
constexpr int least_width = 280; // [device independent pixels]

} // namespace

PageView::PageView(QWidget* parent) : QWidget(parent) {
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void PageView::show_pages(std::vector<TimetableSheet> sheets, const PageSettings& page) {
    const bool other_form = page.paper != page_.paper;
    sheets_ = std::move(sheets);
    page_ = page;
    show_page(0);
    if (other_form)
        updateGeometry();
}

void PageView::show_page(int number) {
    number_ = std::clamp(number, 0, std::max(0, pages() - 1));
    picture_ = {};
    update();
}

int PageView::heightForWidth(int width) const {
    const QSizeF paper = paper_size(page_.paper);
    return static_cast<int>(std::lround(width * paper.height() / paper.width()));
}

QSize PageView::sizeHint() const {
    return {usual_width, heightForWidth(usual_width)};
}

QSize PageView::minimumSizeHint() const {
    return {least_width, heightForWidth(least_width)};
}

QSize PageView::picture_size() const {
    return QSize(width(), heightForWidth(width())) * devicePixelRatioF();
}

QPixmap PageView::painted() const {
    QPixmap picture(picture_size());
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture.fill(Qt::white);
    if (sheets_.empty())
        return picture;
    QPainter painter(&picture);
    const QRectF paper(0, 0, width(), heightForWidth(width()));
    paint_page(painter, paper, sheets_[static_cast<std::size_t>(number_)], page_, number_ + 1, pages());
    return picture;
}

void PageView::paintEvent(QPaintEvent* /*event*/) {
    if (picture_.size() != picture_size())
        picture_ = painted();
    QPainter(this).drawPixmap(0, 0, picture_);
}

} // namespace halvane
