// SPDX-License-Identifier: MIT
#include "crescent/legendlabel.h"

#include "crescent/mapimage.h"

#include <QPainter>
#include <QStyle>
#include <algorithm>
#include <utility>

namespace halvane {

namespace {

QFont bold(QFont font) {
    font.setBold(true);
    return font;
}

} // namespace

LegendLabel::LegendLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

void LegendLabel::show_legend(std::vector<LegendLine> legend, const QColor& bare, Language language) {
    legend_ = std::move(legend);
    bare_ = bare;
    language_ = language;
    QStringList lines;
    for (const LegendLine& line : legend_)
        lines << text_of(line.text, language_);
    setText(lines.join(QStringLiteral("\r\n")));
}

void LegendLabel::mark(std::optional<VisibilityClass> visibility) {
    if (visibility == marked_)
        return;
    marked_ = visibility;
    update();
}

int LegendLabel::line_height() const {
    return fontMetrics().lineSpacing() * 5 / 4;
}

int LegendLabel::swatch_side() const {
    return fontMetrics().ascent() * 4 / 5;
}

int LegendLabel::text_indent() const {
    return mark_indent() + QFontMetrics(bold(font())).horizontalAdvance(u'8') + swatch_side();
}

QSize LegendLabel::sizeHint() const {
    const QFontMetrics widest(bold(font()));
    int width = 0;
    std::size_t lines = 0;
    for (const CriterionRow& criterion : criteria()) {
        const std::vector<LegendLine> legend = map_legend(criterion);
        lines = std::max(lines, legend.size());
        for (const Language language : languages)
            for (const LegendLine& line : legend)
                width = std::max(width, widest.horizontalAdvance(text_of(line.text, language)));
    }
    return {text_indent() + width + 2, line_height() * static_cast<int>(lines)};
}

QRect LegendLabel::swatch(int line) const {
    const int side = swatch_side();
    const QRect place(0, line * line_height() + (line_height() - side) / 2, side, side);
    return QStyle::visualRect(layoutDirection(), rect(), place);
}

void LegendLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setLayoutDirection(layoutDirection());
    const QColor ink = palette().color(QPalette::WindowText);
    for (int line = 0; line < static_cast<int>(legend_.size()); ++line) {
        const LegendLine& entry = legend_[static_cast<std::size_t>(line)];
        painter.setPen(ink);
        painter.setFont(marked_ == entry.visibility ? bold(font()) : font());
        painter.setBrush(shown(legend_colour(entry.visibility, plain(bare_))));
        painter.drawRect(swatch(line).adjusted(0, 0, -1, -1));
        const auto write = [&](int left, const QString& text) {
            const QRect place(left, line * line_height(), width() - left, line_height());
            painter.drawText(QStyle::visualRect(layoutDirection(), rect(), place),
                             static_cast<int>(Qt::AlignLeading | Qt::AlignVCenter), text);
        };
        write(mark_indent(), QString(QLatin1Char(class_mark(entry.visibility))));
        write(text_indent(), text_of(entry.text, language_));
    }
}

} // namespace halvane
