// SPDX-License-Identifier: MIT
#include "panel/textline.h"

#include <QFontMetricsF>
#include <QTextOption>
#include <algorithm>

namespace halvane {

namespace {

constexpr double indent = 0.65; // of a column, for each leading blank: under the text behind "1. " and "- "
constexpr char16_t nothing = 0x200B; // a character without a width

/// Leading blanks and runs of two or more become a tab to the column behind them; the text keeps its length.
QString with_tabs(const QString& text, double column, Qt::LayoutDirection direction,
                  QList<QTextOption::Tab>& tabs) {
    // Qt takes the two kinds for each other in a line from the right.
    const auto begin_here = direction == Qt::LeftToRight ? QTextOption::LeftTab : QTextOption::RightTab;
    QString line = text;
    for (qsizetype from = 0; from < line.size();) {
        qsizetype to = from;
        while (to < line.size() && line[to] == u' ')
            ++to;
        if (to == from) {
            ++from;
            continue;
        }
        if (to < line.size() && (from == 0 || to - from > 1)) {
            for (qsizetype at = from; at < to - 1; ++at)
                line[at] = nothing;
            line[to - 1] = u'\t';
            const double width = from == 0 ? column * indent : column;
            tabs.append(QTextOption::Tab(static_cast<double>(to) * width, begin_here));
        }
        from = to;
    }
    return line;
}

} // namespace

Qt::LayoutDirection direction_of(const QString& line, Qt::LayoutDirection before) {
    bool has_letter = false;
    for (const QChar character : line) {
        if (character.script() == QChar::Script_Arabic && character.isLetter())
            return Qt::RightToLeft;
        has_letter = has_letter || character.isLetter();
    }
    return has_letter ? Qt::LeftToRight : before;
}

LineStyle::LineStyle(const QFont& wanted, bool is_proportional, QPaintDevice* device)
    : font(wanted), proportional(is_proportional) {
    const QFontMetricsF metrics = device == nullptr ? QFontMetricsF(font) : QFontMetricsF(font, device);
    column = metrics.horizontalAdvance(u'0');
    height = metrics.lineSpacing();
    ascent = metrics.ascent();
    if (!proportional)
        return;
    // The letters of the other script may be taller.
    QTextLayout sample(QString(), font, device);
    lay_out(sample, QStringLiteral("Åg جّم"), *this, Qt::RightToLeft, 0);
    height = std::max(height, sample.lineAt(0).height());
    ascent = std::max(ascent, sample.lineAt(0).ascent());
}

double drop(const QTextLayout& layout, const LineStyle& style) {
    return style.ascent - layout.lineAt(0).ascent();
}

void lay_out(QTextLayout& layout, const QString& text, const LineStyle& style, Qt::LayoutDirection direction,
             double width) {
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    option.setTextDirection(direction);
    option.setAlignment(Qt::AlignAbsolute | (direction == Qt::LeftToRight ? Qt::AlignLeft : Qt::AlignRight));
    QList<QTextOption::Tab> tabs;
    layout.setText(style.proportional ? with_tabs(text, style.column, direction, tabs) : text);
    option.setTabs(tabs);
    if (!style.proportional)
        option.setTabStopDistance(8 * style.column);
    layout.setFont(style.font);
    layout.setTextOption(option);
    layout.setCacheEnabled(true);
    layout.beginLayout();
    layout.createLine().setLineWidth(width);
    layout.endLayout();
}

} // namespace halvane
