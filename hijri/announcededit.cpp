// SPDX-License-Identifier: MIT
#include "hijri/announcededit.h"

#include "timetable/placewords.h"

#include <cstddef>
#include <utility>

namespace halvane {

AnnouncedEdit::AnnouncedEdit(AnnouncedList stored) : stored_(stored.rows), list_(std::move(stored)) {}

std::string AnnouncedEdit::cell(int row, int column) const {
    const AnnouncedRow& line = list_.rows.at(static_cast<std::size_t>(row));
    if (!line.unread.empty())
        return column == 0 ? line.unread : std::string();
    std::string text;
    for (auto field = static_cast<std::size_t>(column); field < line.fields.size(); ++field) {
        if (field > static_cast<std::size_t>(column))
            text += ", ";
        text += line.fields[field];
        if (column + 1 < columns)
            break;
    }
    return text;
}

bool AnnouncedEdit::may_edit(int row, int column) const {
    return column == 0 || list_.rows.at(static_cast<std::size_t>(row)).unread.empty();
}

void AnnouncedEdit::set_cell(int row, int column, const std::string& text) {
    if (text == cell(row, column) || !may_edit(row, column))
        return;
    std::vector<AnnouncedRow> rows = list_.rows;
    AnnouncedRow& line = rows.at(static_cast<std::size_t>(row));
    if (!line.unread.empty()) {
        const std::string head = text_of(std::span<const AnnouncedRow>());
        const std::vector<AnnouncedRow> read = announced_of_text(head + text).rows;
        line = read.empty() ? AnnouncedRow{line.line, {text}, {}}
                            : AnnouncedRow{line.line, read.front().fields, read.front().unread};
    } else {
        const auto field = static_cast<std::size_t>(column);
        if (line.fields.size() <= field || column + 1 == columns)
            line.fields.resize(field + 1);
        line.fields[field] = text;
    }
    read_again(std::move(rows));
}

int AnnouncedEdit::add(HijriMonthNumber added) {
    std::vector<AnnouncedRow> rows = list_.rows;
    rows.push_back({0, {std::to_string(added.year()), std::to_string(added.month()), "", ""}, {}});
    read_again(std::move(rows));
    return this->rows() - 1;
}

void AnnouncedEdit::remove(int row) {
    std::vector<AnnouncedRow> rows = list_.rows;
    rows.erase(rows.begin() + row);
    read_again(std::move(rows));
}

void AnnouncedEdit::read_again(std::vector<AnnouncedRow> rows) {
    list_ = announced_of_rows(std::move(rows));
}

TwinWords AnnouncedEdit::problems(int row) const {
    TwinWords words;
    for (const AnnouncedProblem& problem : list_.problems)
        if (problem.row == static_cast<std::size_t>(row))
            words = words.english.empty() ? problem.words : joined(words, "; ", problem.words);
    return words;
}

int AnnouncedEdit::faulty_rows() const {
    int faulty = 0;
    for (int row = 0; row < rows(); ++row)
        faulty += problems(row).english.empty() ? 0 : 1;
    return faulty;
}

} // namespace halvane
