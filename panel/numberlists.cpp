// SPDX-License-Identifier: MIT
#include "panel/numberlists.h"

#include "base/numberformat.h"
#include "panel/formlanguage.h"
#include "panel/numberbox.h"
#include "panel/panelstyle.h"
#include "panel/typednumber.h"

#include <QComboBox>
#include <QLineEdit>

namespace halvane {

namespace {

void fill_from_zero(QComboBox& list, int last) {
    fill_with_numbers(list, last);
    list.insertItem(0, QStringLiteral("0"));
}

} // namespace

void fill_with_numbers(QComboBox& list, int last) {
    list.clear();
    for (int number = 1; number <= last; ++number)
        list.addItem(QString::number(number));
}

void fill_with_days(QComboBox& list) {
    fill_with_numbers(list, 31);
}

void fill_with_months(QComboBox& list) {
    fill_with_numbers(list, 12);
}

void fill_with_hours(QComboBox& list) {
    fill_from_zero(list, 23);
}

void fill_with_minutes(QComboBox& list) {
    fill_from_zero(list, 59);
}

void choose_entry(QComboBox& list, const std::string& text) {
    const int row = list.findText(QString::fromStdString(text), Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (row >= 0)
        list.setCurrentIndex(row);
}

void show_entry(QComboBox& list, const std::string& text) {
    const QString entry = QString::fromStdString(text);
    if (list.findText(entry, Qt::MatchExactly | Qt::MatchCaseSensitive) < 0)
        list.addItem(entry);
    choose_entry(list, text);
}

std::string text_of(const QComboBox& list) {
    return list.currentText().toStdString();
}

std::string text_of(const QLineEdit& box) {
    return (keeps_number(box) ? typed_number(box.text()).text : box.text()).toStdString();
}

double number_in(const QComboBox& list) {
    return numeric_prefix(text_of(list));
}

double number_in(const QLineEdit& box) {
    return numeric_prefix(text_of(box));
}

void shape_number_box(QLineEdit& box, const char* longest) {
    keep_number(box);
    fit_width(box, QString::fromLatin1(longest));
    box.setMaximumWidth(box.minimumWidth());
    const bool mirrored = box.parentWidget()->isRightToLeft();
    keep_left_to_right(box);
    box.setAlignment(mirrored ? Qt::AlignLeft : Qt::AlignRight);
}

void ask_again(QLineEdit& box) {
    box.setFocus(Qt::OtherFocusReason);
    box.selectAll();
}

} // namespace halvane
