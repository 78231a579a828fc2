// SPDX-License-Identifier: MIT
#include "panel/deskbutton.h"

#include "panel/panelstyle.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace halvane {

namespace {

/// Draws icon and caption from the leading edge of the button's inner rectangle.
void draw_content(QStylePainter& painter, const QStyleOptionButton& option, int unit) {
    QRect inner = option.rect.adjusted(unit, 0, -unit, 0);
    if (!option.icon.isNull()) {
        const QRect place =
            QStyle::alignedRect(option.direction, Qt::AlignLeft | Qt::AlignVCenter, option.iconSize, inner);
        const bool enabled = option.state.testFlag(QStyle::State_Enabled);
        option.icon.paint(&painter, place, Qt::AlignCenter, enabled ? QIcon::Normal : QIcon::Disabled);
        const int taken = option.iconSize.width() + unit;
        inner = option.direction == Qt::RightToLeft ? inner.adjusted(0, 0, -taken, 0)
                                                    : inner.adjusted(taken, 0, 0, 0);
    }
    const int flags =
        static_cast<int>(QStyle::visualAlignment(option.direction, Qt::AlignLeft | Qt::AlignVCenter)) |
        Qt::TextShowMnemonic;
    painter.drawItemText(inner, flags, option.palette, option.state.testFlag(QStyle::State_Enabled),
                         option.text, QPalette::ButtonText);
}

} // namespace

QSize DeskButton::sizeHint() const {
    const int unit = space_unit(*this);
    QSize wanted =
        fontMetrics().size(Qt::TextShowMnemonic | Qt::TextSingleLine, text()) + QSize(3 * unit, 2 * unit);
    if (!icon().isNull())
        wanted += QSize(iconSize().width() + unit, 0);
    return wanted;
}

void DeskButton::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    painter.drawControl(QStyle::CE_PushButtonBevel, option);
    draw_content(painter, option, space_unit(*this));
    if (hasFocus() && option.state.testFlag(QStyle::State_KeyboardFocusChange)) {
        QStyleOptionFocusRect frame;
        frame.QStyleOption::operator=(option);
        frame.rect = style()->subElementRect(QStyle::SE_PushButtonFocusRect, &option, this);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, frame);
    }
}

} // namespace halvane
