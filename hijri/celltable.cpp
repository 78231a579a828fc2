// SPDX-License-Identifier: MIT
#include "hijri/celltable.h"

#include "panel/panelstyle.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>

namespace halvane {

CellTable::CellTable(QWidget* parent) : QTableWidget(parent) {
    setTabKeyNavigation(false);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setWordWrap(false);
    verticalHeader()->hide();
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeading | Qt::AlignVCenter);
}

void CellTable::show_columns(const QStringList& titles) {
    setRowCount(0);
    setColumnCount(static_cast<int>(titles.size()));
    setHorizontalHeaderLabels(titles);
}

void CellTable::show_cell(int row, int column, const QString& text, bool marked, bool may_edit) {
    QTableWidgetItem* cell = item(row, column);
    if (cell == nullptr)
        setItem(row, column, cell = new QTableWidgetItem);
    cell->setText(text);
    QFont letters = font();
    letters.setBold(marked);
    cell->setFont(letters);
    cell->setToolTip(text);
    cell->setFlags(may_edit ? cell->flags() | Qt::ItemIsEditable : cell->flags() & ~Qt::ItemIsEditable);
}

void CellTable::fit_cells() {
    verticalHeader()->setDefaultSectionSize(fontMetrics().lineSpacing() + space_unit(*this));
    resizeColumnsToContents();
    for (int column = 0; column + 1 < columnCount(); ++column)
        setColumnWidth(column, columnWidth(column) + space_unit(*this));
    widen_last();
}

/// Qt's own stretching would cut a text that is wider than the room that is left.
void CellTable::widen_last() {
    const int last = columnCount() - 1;
    if (last < 0)
        return;
    const int left = viewport()->width() - (horizontalHeader()->length() - columnWidth(last));
    const int wanted = std::max(sizeHintForColumn(last), horizontalHeader()->sectionSizeHint(last));
    setColumnWidth(last, std::max(left, wanted + space_unit(*this)));
}

void CellTable::resizeEvent(QResizeEvent* event) {
    QTableWidget::resizeEvent(event);
    widen_last();
}

/// Enter would go on to the window's default button.
void CellTable::keyPressEvent(QKeyEvent* event) {
    QTableWidget::keyPressEvent(event);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        event->accept();
}

} // namespace halvane
