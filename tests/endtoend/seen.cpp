// SPDX-License-Identifier: MIT
// seen PICTURE FACTOR normal|bold TEXT: does the picture of a panel show TEXT, set in the program's font at
// FACTOR times its size, plain or bold in the accent? Exit status 0 when it does, 1 when it does not.

#include "panel/panelstyle.h"

#include <QApplication>
#include <QFontInfo>
#include <QImage>
#include <QPainter>
#include <QWidget>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

/// How far one colour is from another at which they still count as the same: font smoothing.
constexpr int colour_tolerance = 40;

bool is_ink(QRgb colour, QRgb paper) {
    return std::abs(qGray(colour) - qGray(paper)) > colour_tolerance;
}

/// The text as the panel draws it, cut to its ink; glyphs fall on fractions of a pixel.
QImage drawn(const QString& text, double factor, bool bold, const QColor& paper, double offset) {
    QFont font = QApplication::font();
    font.setPointSizeF(QFontInfo(font).pointSizeF() * factor);
    font.setBold(bold);
    const QFontMetrics metrics(font);
    QImage picture(metrics.horizontalAdvance(text) + 2 * metrics.height(), 2 * metrics.height(),
                   QImage::Format_RGB32);
    picture.fill(paper);
    QPainter painter(&picture);
    painter.setFont(font);
    painter.setPen(bold ? halvane::accent_colour(QWidget()) : QColor(Qt::black));
    painter.drawText(QPointF(metrics.height() + offset, 1.5 * metrics.height()), text);
    painter.end();
    QRect cut;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (is_ink(picture.pixel(x, y), paper.rgb()))
                cut |= QRect(x, y, 1, 1);
    return picture.copy(cut);
}

/// Where a picture has ink.
struct Mask {
    Mask(const QImage& picture, QRgb paper) : width(picture.width()), height(picture.height()) {
        ink.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                ink.push_back(is_ink(picture.pixel(x, y), paper) ? 1 : 0);
    }
    const char* row(int x, int y) const { return ink.data() + static_cast<std::ptrdiff_t>(y) * width + x; }

    int width;
    int height;
    std::vector<char> ink;
};

/// Is there ink in the same places, but for so many?
bool agree(const Mask& picture, const Mask& wanted, int x, int y, int limit) {
    int count = 0;
    for (int line = 0; line < wanted.height; ++line) {
        const char* here = picture.row(x, y + line);
        const char* there = wanted.row(0, line);
        for (int column = 0; column < wanted.width; ++column)
            count += here[column] != there[column] ? 1 : 0;
        if (count > limit)
            return false;
    }
    return true;
}

bool shows(const Mask& picture, const Mask& wanted) {
    // The smoothing of an edge may fall on either side of the tolerance.
    const int limit = wanted.width * wanted.height / 30;
    for (int y = 0; y + wanted.height <= picture.height; ++y)
        for (int x = 0; x + wanted.width <= picture.width; ++x)
            if (agree(picture, wanted, x, y, limit))
                return true;
    return false;
}

} // namespace

int main(int count, char** words) {
    QApplication application(count, words);
    if (count != 5)
        return 2;
    const QImage picture = QImage(QString::fromLocal8Bit(words[1])).convertToFormat(QImage::Format_RGB32);
    if (picture.isNull())
        return 2;
    const QColor paper(picture.pixel(2, 2));
    const bool bold = std::strcmp(words[3], "bold") == 0;
    const Mask panel(picture, paper.rgb());
    for (const double offset : {0.0, 0.25, 0.5, 0.75}) {
        const QImage text = drawn(QString::fromUtf8(words[4]), std::atof(words[2]), bold, paper, offset);
        if (shows(panel, Mask(text, paper.rgb())))
            return 0;
    }
    return 1;
}
