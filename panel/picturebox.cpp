// SPDX-License-Identifier: MIT
#include "panel/picturebox.h"

#include "base/failure.h"
#include "panel/panelstyle.h"
#include "stored/programfolder.h"
#include "stored/textfile.h"

#include <QPainter>

namespace halvane {

namespace {

constexpr int width_without_picture = 48; // [units of space]

} // namespace

QImage stored_picture(std::string_view name) {
    try {
        return QImage::fromData(QByteArray::fromStdString(read_file(delivered_path(name))));
    } catch (const RunTimeFailure&) {
        return {};
    }
}

PictureBox::PictureBox(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void PictureBox::set_picture(const QPixmap& picture) {
    picture_ = picture;
    updateGeometry();
    update();
}

void PictureBox::set_words_without_picture(const QString& words) {
    words_ = words;
    update();
}

QSize PictureBox::sizeHint() const {
    const int unit = space_unit(*this);
    return picture_.isNull() ? QSize(width_without_picture, width_without_picture / 2) * unit
                             : picture_.size();
}

QSize PictureBox::minimumSizeHint() const {
    return sizeHint() / 2;
}

void PictureBox::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (picture_.isNull()) {
        painter.drawText(rect(), static_cast<int>(Qt::AlignCenter) | Qt::TextWordWrap, words_);
        return;
    }
    QRect place(QPoint(), picture_.size().scaled(size(), Qt::KeepAspectRatio));
    place.moveCenter(rect().center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(place, picture_);
}

} // namespace halvane
