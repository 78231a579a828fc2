// SPDX-License-Identifier: MIT
#include "panel/choicelists.h"

#include <QComboBox>
#include <QCompleter>
#include <QLabel>

namespace halvane {

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

void make_bold(QLabel& label) {
    QFont font = label.font();
    font.setBold(true);
    label.setFont(font);
}

void show_words(QLabel& label, const QString& words) {
    label.setText(words);
    label.setVisible(!words.isEmpty());
}

} // namespace halvane
