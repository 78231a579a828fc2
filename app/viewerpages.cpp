#include "app/viewerpages.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextOption>
#include <algorithm>

namespace halvane {

namespace {

constexpr double largest_type = 10; // [pt]
constexpr double smallest_type = 4; // [pt]
constexpr int head_lines = 2;

qsizetype longest_line(const QStringList& lines) {
    qsizetype longest = 1;
    for (const QString& line : lines)
        longest = std::max(longest, line.size());
    return longest;
}

QFont fitting_font(QPaintDevice* device, double width, qsizetype columns) {
    QFont font(fixed_family());
    font.setFixedPitch(true);
    font.setPointSizeF(largest_type);
    const double wanted = QFontMetricsF(font, device).horizontalAdvance(QString(columns, u'0'));
    if (wanted > width)
        font.setPointSizeF(std::max(smallest_type, largest_type * width / wanted));
    return font;
}

void draw_line(QPainter& painter, const QRectF& place, const QString& line, Qt::LayoutDirection direction) {
    QTextOption option((direction == Qt::LeftToRight ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    option.setWrapMode(QTextOption::NoWrap);
    option.setTextDirection(direction);
    painter.drawText(place, line, option);
}

} // namespace

QString fixed_family() {
    return QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
}

Qt::LayoutDirection direction_of(const QString& line, Qt::LayoutDirection before) {
    bool has_letter = false;
    for (const QChar character : line) {
        if (character.script() == QChar::Script_Arabic && character.isLetter())
            return Qt::RightToLeft;
        has_letter = has_letter || character.isLetter();
    }
    return has_letter ? Qt::LeftToRight : before;
}

int print_pages(QPagedPaintDevice& device, const QString& name, const QString& text, bool both_directions) {
    const QStringList lines = QString(text).remove(u'\r').split(u'\n');
    QPainter painter(&device);
    const QRectF page(0, 0, device.width(), device.height());
    painter.setFont(fitting_font(&device, page.width(), longest_line(lines)));
    const double height = painter.fontMetrics().lineSpacing();
    const auto rows = std::max<qsizetype>(1, static_cast<qsizetype>(page.height() / height) - head_lines);
    const auto pages = static_cast<int>((lines.size() + rows - 1) / rows);
    Qt::LayoutDirection direction = Qt::LeftToRight;
    for (int number = 0; number < pages; ++number) {
        if (number > 0)
            device.newPage();
        const QRectF head(0, 0, page.width(), height);
        painter.drawText(head, Qt::AlignLeft, name);
        painter.drawText(head, Qt::AlignRight, QStringLiteral("%1 / %2").arg(number + 1).arg(pages));
        const qsizetype first = number * rows;
        for (qsizetype row = 0; row < rows && first + row < lines.size(); ++row) {
            const QString& line = lines[first + row];
            if (both_directions)
                direction = direction_of(line, direction);
            const double top = static_cast<double>(row + head_lines) * height;
            draw_line(painter, QRectF(0, top, page.width(), height), line, direction);
        }
    }
    return pages;
}

} // namespace halvane
