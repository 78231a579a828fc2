// seen PICTURE FACTOR normal|bold TEXT: does the picture of a panel show TEXT, set in the program's font at
// FACTOR times its size, plain or bold in the accent? Exit status 0 when it does, 1 when it does not.

#include "app/frmstyle.h"

#include <QApplication>
#include <QFontInfo>
#include <QImage>
#include <QPainter>
#include <QWidget>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

/// How far one colour is from another at which they still count as the same: font smoothing.
constexpr int kColourTolerance = 40;

bool is_ink(QRgb colour, QRgb paper) {
    return std::abs(qGray(colour) - qGray(paper)) > kColourTolerance;
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

/// Counts at most `limit` places where only one of the two has ink.
int differences(const QImage& picture, QRgb paper, const QImage& wanted, QPoint at, int limit) {
    int count = 0;
    for (int y = 0; y < wanted.height() && count <= limit; ++y)
        for (int x = 0; x < wanted.width() && count <= limit; ++x)
            if (is_ink(picture.pixel(at.x() + x, at.y() + y), paper) != is_ink(wanted.pixel(x, y), paper))
                ++count;
    return count;
}

bool shows(const QImage& picture, const QImage& wanted) {
    // The smoothing of an edge may fall on either side of the tolerance.
    const int limit = wanted.width() * wanted.height() / 40;
    const QRgb paper = picture.pixel(2, 2);
    for (int y = 0; y + wanted.height() <= picture.height(); ++y)
        for (int x = 0; x + wanted.width() <= picture.width(); ++x)
            if (differences(picture, paper, wanted, {x, y}, limit) <= limit)
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
    for (const double offset : {0.0, 0.25, 0.5, 0.75})
        if (shows(picture, drawn(QString::fromUtf8(words[4]), std::atof(words[2]), bold, paper, offset)))
            return 0;
    return 1;
}
