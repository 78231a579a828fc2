// SPDX-License-Identifier: MIT
#include "hijri/announcedtable.h"

#include <QSignalBlocker>
#include <algorithm>
#include <utility>

namespace halvane {

namespace {

constexpr TwinText titles[] = {
    {"Year", "السنة"},         {"Month", "الشهر"},         {"First day", "اليوم الأول"},
    {"Announced by", "أعلنه"}, {"What is wrong", "الخطأ"},
};

} // namespace

AnnouncedTable::AnnouncedTable(QWidget* parent) : CellTable(parent) {
    connect(this, &QTableWidget::cellChanged, this, &AnnouncedTable::take);
}

void AnnouncedTable::show_list(AnnouncedList list, Language language) {
    language_ = language;
    edit_ = AnnouncedEdit(std::move(list));
    QStringList names;
    for (const TwinText& title : titles)
        names << text_of(title, language);
    const int row = std::max(0, currentRow());
    const QSignalBlocker quiet(this);
    show_columns(names);
    show_rows();
    fit_cells();
    setCurrentCell(std::min(row, rowCount() - 1), AnnouncedEdit::year);
}

void AnnouncedTable::show_rows() {
    const QSignalBlocker quiet(this);
    setRowCount(edit_.rows());
    for (int row = 0; row < edit_.rows(); ++row) {
        const QString problems = text_of(edit_.problems(row), language_);
        const bool is_faulty = !problems.isEmpty();
        for (int column = 0; column < AnnouncedEdit::columns; ++column)
            show_cell(row, column, QString::fromStdString(edit_.cell(row, column)), is_faulty,
                      edit_.may_edit(row, column));
        show_cell(row, AnnouncedEdit::columns, problems, is_faulty);
    }
}

void AnnouncedTable::take(int row, int column) {
    const QString typed = item(row, column)->text();
    // A day is no number, and its signs stay; its digits may be of any script.
    QString text = typed;
    if (column != AnnouncedEdit::announced_by)
        std::transform(text.begin(), text.end(), text.begin(), [](QChar letter) {
            return letter.isDigit() ? QChar(u'0' + static_cast<char16_t>(letter.digitValue())) : letter;
        });
    edit_.set_cell(row, column, text.trimmed().toStdString());
    show_rows();
    fit_cells();
    emit edited();
}

void AnnouncedTable::add(HijriMonthNumber month) {
    const int row = edit_.add(month);
    show_rows();
    fit_cells();
    setFocus();
    setCurrentCell(row, AnnouncedEdit::first_day);
    editItem(item(row, AnnouncedEdit::first_day));
    emit edited();
}

void AnnouncedTable::remove_current() {
    const int row = currentRow();
    if (row < 0)
        return;
    edit_.remove(row);
    show_rows();
    setCurrentCell(std::min(row, rowCount() - 1), AnnouncedEdit::year);
    emit edited();
}

} // namespace halvane
