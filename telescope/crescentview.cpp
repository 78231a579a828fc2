// SPDX-License-Identifier: MIT
#include "telescope/crescentview.h"

#include "panel/picturebox.h"

#include <QPainter>
#include <algorithm>

namespace halvane {

namespace {

constexpr int picture_size = 200;    // of the delivered files
const QColor sky(0, 0, 0);           // as in the pictures
const QColor mark(0xB8, 0xC4, 0xCC); // 11 to 1 on the sky
constexpr double mark_size = 0.8;    // of the panel's font

QRect centred_square(const QRect& place) {
    const int side = std::min(place.width(), place.height());
    QRect square(0, 0, side, side);
    square.moveCenter(place.center());
    return square;
}

} // namespace

CrescentView::CrescentView(QWidget* parent) : QWidget(parent) {
    setMinimumSize(picture_size, picture_size);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void CrescentView::show_picture(const QString& name, bool zenith_below) {
    name_ = name;
    zenith_below_ = zenith_below;
    image_ = stored_picture("images/" + name.toStdString());
    update();
}

void CrescentView::show_phase(const std::optional<DrawnPhase>& phase) {
    phase_ = phase;
    update();
}

void CrescentView::set_texts(const QString& zenith, const QString& lit, const QString& missing) {
    zenith_ = zenith;
    lit_ = lit;
    missing_ = missing;
}

QSize CrescentView::sizeHint() const {
    return {picture_size, picture_size};
}

void CrescentView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QRect square = centred_square(rect());
    painter.fillRect(square, sky);
    if (name_.isEmpty())
        return;
    if (phase_) {
        painter.setFont(small_font());
        paint_phase(painter, square, *phase_, lit_);
    } else {
        draw_picture(painter, square);
    }
    if (phase_ || has_picture())
        draw_zenith_mark(painter, square);
}

QFont CrescentView::small_font() const {
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * mark_size);
    return small;
}

void CrescentView::draw_picture(QPainter& painter, const QRect& square) const {
    if (has_picture()) {
        const double pixels = square.width() * devicePixelRatioF();
        QImage scaled =
            image_.convertToFormat(QImage::Format_RGB32)
                .scaled(QSize(1, 1) * qRound(pixels), Qt::KeepAspectRatio, Qt::SmoothTransformation);
        scaled.setDevicePixelRatio(devicePixelRatioF());
        painter.drawImage(square.topLeft(), scaled);
        return;
    }
    painter.setPen(mark);
    painter.drawText(square, Qt::AlignCenter | Qt::TextWordWrap, missing_.arg(name_));
}

void CrescentView::draw_zenith_mark(QPainter& painter, const QRect& square) const {
    painter.setFont(small_font());
    painter.setPen(mark);
    const int gap = painter.fontMetrics().lineSpacing() / 4;
    const QRect place = square.adjusted(gap, gap, -gap, -gap);
    const int side = zenith_below_ ? Qt::AlignBottom : Qt::AlignTop;
    painter.drawText(place, Qt::AlignLeft | side,
                     (zenith_below_ ? QStringLiteral("↓ ") : QStringLiteral("↑ ")) + zenith_);
}

} // namespace halvane
