// SPDX-License-Identifier: MIT
#include "timetable/columnlist.h"

#include <QListWidget>
#include <QSignalBlocker>
#include <algorithm>

namespace halvane {

namespace {

TimetableColumn column_of(const QListWidgetItem& item) {
    return static_cast<TimetableColumn>(item.data(Qt::UserRole).toInt());
}

QString name_of(TimetableColumn column, PrayerNames names, Language language) {
    const ColumnNames& row = names_of(column);
    return text_of(names == PrayerNames::halvane ? row.halvane : row.common, language);
}

void add_column(QListWidget& list, TimetableColumn column, bool checked, const QString& name) {
    auto* const item = new QListWidgetItem(name, &list);
    item->setData(Qt::UserRole, static_cast<int>(column));
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
}

} // namespace

void show_columns(QListWidget& list, const std::vector<TimetableColumn>& chosen, PrayerNames names,
                  Language language) {
    const QSignalBlocker quiet(list);
    list.clear();
    for (const TimetableColumn column : chosen)
        add_column(list, column, true, name_of(column, names, language));
    for (const ColumnNames& row : column_names())
        if (std::find(chosen.begin(), chosen.end(), row.column) == chosen.end())
            add_column(list, row.column, false, name_of(row.column, names, language));
    list.setCurrentRow(0);
}

std::vector<TimetableColumn> checked_columns(const QListWidget& list) {
    std::vector<TimetableColumn> columns;
    for (int row = 0; row < list.count(); ++row)
        if (list.item(row)->checkState() == Qt::Checked)
            columns.push_back(column_of(*list.item(row)));
    return columns;
}

void rename_columns(QListWidget& list, PrayerNames names, Language language) {
    const QSignalBlocker quiet(list);
    for (int row = 0; row < list.count(); ++row)
        list.item(row)->setText(name_of(column_of(*list.item(row)), names, language));
}

void move_current_column(QListWidget& list, int by) {
    const int row = list.currentRow();
    const int target = row + by;
    if (row < 0 || target < 0 || target >= list.count())
        return;
    const QSignalBlocker quiet(list);
    list.insertItem(target, list.takeItem(row));
    list.setCurrentRow(target);
}

} // namespace halvane
