// SPDX-License-Identifier: MIT
#include "panel/choicelists.h"

#include "panel/panelstyle.h"

#include <QApplication>
#include <QComboBox>
#include <QCompleter>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QVariant>
#include <algorithm>

namespace halvane {

namespace {

/// Scrolls to a control of an area; a list is shown whole, not its current entry alone.
void show_whole(QScrollArea& area, const QWidget& control) {
    const QRect place(control.mapTo(area.widget(), QPoint()), control.size());
    area.ensureVisible(place.center().x(), place.center().y(), place.width() / 2,
                       place.height() / 2 + space_unit(area));
}

/// The wheel would choose another entry of a list that it passes over.
class WheelKeeper : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Wheel || static_cast<QWidget*>(watched)->hasFocus())
            return false;
        event->ignore();
        return true;
    }
};

} // namespace

void filter_while_typing(QComboBox& list) {
    list.completer()->setFilterMode(Qt::MatchContains);
    list.completer()->setCompletionMode(QCompleter::PopupCompletion);
    list.completer()->setCaseSensitivity(Qt::CaseInsensitive);
    list.setCurrentIndex(-1);
}

void limit_width(QComboBox& list) {
    constexpr int letters = 24;
    list.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list.setMinimumContentsLength(letters);
    list.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void choose_data(QComboBox& list, const QVariant& data) {
    list.setCurrentIndex(std::max(0, list.findData(data)));
}

void make_bold(QLabel& label) {
    QFont font = label.font();
    font.setBold(true);
    label.setFont(font);
}

void show_words(QLabel& label, const QString& words) {
    label.setText(words);
    label.setVisible(!words.isEmpty());
}

void shape_choices(QScrollArea& area, int lines) {
    area.setMinimumHeight(lines * area.fontMetrics().lineSpacing());
    area.setMinimumWidth(area.widget()->sizeHint().width() +
                         area.style()->pixelMetric(QStyle::PM_ScrollBarExtent));
    auto* const keeper = new WheelKeeper(&area);
    for (QComboBox* list : area.findChildren<QComboBox*>()) {
        list->setFocusPolicy(Qt::StrongFocus); // the wheel gives none
        list->installEventFilter(keeper);
    }
    // What is behind it shows through.
    area.viewport()->setAutoFillBackground(false);
    area.widget()->setAutoFillBackground(false);
}

void keep_focus_in_sight(QScrollArea& area) {
    const auto show_focus = [&area] {
        if (QWidget* now = QApplication::focusWidget(); now != nullptr && area.isAncestorOf(now))
            show_whole(area, *now);
    };
    QObject::connect(qApp, &QApplication::focusChanged, &area, show_focus);
    QObject::connect(area.verticalScrollBar(), &QScrollBar::rangeChanged, &area, show_focus);
}

} // namespace halvane
