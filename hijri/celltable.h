// SPDX-License-Identifier: MIT
#pragma once

#include <QTableWidget>

namespace halvane {

/// A table of texts that the keyboard passes through: Tab leaves it, Enter stays in it and activates the
/// chosen row, the arrows go from cell to cell. Columns are as wide as their texts.
class CellTable : public QTableWidget {
    Q_OBJECT
public:
    explicit CellTable(QWidget* parent = nullptr);

    /// Gives it columns of these titles and takes every row out.
    void show_columns(const QStringList& titles);
    /// Puts a text into a cell. In     marked  in bold letters
    void show_cell(int row, int column, const QString& text, bool marked = false, bool may_edit = false);
    /// Makes columns and rows as large as their texts; the last column takes the room that is left, too.
    void fit_cells();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void widen_last();
};

} // namespace halvane
