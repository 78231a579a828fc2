// SPDX-License-Identifier: MIT
#include "panel/namelabel.h"

#include "panel/panelstyle.h"

#include <QHelpEvent>
#include <QStyle>
#include <QStylePainter>
#include <QTextDocument>
#include <QToolTip>
#include <algorithm>

namespace halvane {

namespace {

constexpr int most_width = 36;  // units of space
constexpr int least_width = 12; // units of space
constexpr int most_letters = 40;

} // namespace

NameLabel::NameLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

QSize NameLabel::sizeHint() const {
    const QSize whole = QLabel::sizeHint();
    return {std::min(whole.width(), most_width * space_unit(*this)), whole.height()};
}

QSize NameLabel::minimumSizeHint() const {
    const QSize wanted = sizeHint();
    return {std::min(wanted.width(), least_width * space_unit(*this)), wanted.height()};
}

QString NameLabel::shown_text() const {
    return fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width());
}

bool NameLabel::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || shown_text() == text())
        return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), plain_tip(text()), this);
    return true;
}

void NameLabel::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    const Qt::Alignment side = QStyle::visualAlignment(layoutDirection(), alignment());
    painter.drawItemText(contentsRect(), static_cast<int>(side) | Qt::TextSingleLine, palette(), isEnabled(),
                         shown_text(), foregroundRole());
}

QString shortened(const QString& text) {
    if (text.size() <= most_letters)
        return text;
    constexpr int half = most_letters / 2;
    const auto cuts_pair = [&](qsizetype at) { return text[at].isLowSurrogate(); };
    const qsizetype front = cuts_pair(half) ? half - 1 : half;
    const qsizetype back = cuts_pair(text.size() - half) ? half - 1 : half;
    return text.left(front) + QChar(0x2026) + text.right(back);
}

QString plain_tip(const QString& text) {
    return Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal);
}

} // namespace halvane
