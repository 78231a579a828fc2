// SPDX-License-Identifier: MIT
#pragma once

#include "hijri/announcedlist.h"

namespace halvane {

/// The list of announced starts while it is edited. Every row keeps its text, wrong ones too.
class AnnouncedEdit {
public:
    enum Column { year, month, first_day, announced_by };
    static constexpr int columns = 4;

    /// In     stored  the list as its file has it
    explicit AnnouncedEdit(AnnouncedList stored = {});

    int rows() const { return static_cast<int>(list_.rows.size()); }
    /// What a cell holds. Fields beyond the last column stand in it, as one text; a line of which its quote
    /// marks make no fields stands in the first one, whole.
    std::string cell(int row, int column) const;
    /// Such a line is edited in its first cell alone.
    bool may_edit(int row, int column) const;
    void set_cell(int row, int column, const std::string& text);

    /// Adds a row for a month at the end, its day still to be told. Returns its number
    int add(HijriMonthNumber month);
    void remove(int row);

    /// All that is wrong with a row; empty where nothing is.
    TwinWords problems(int row) const;
    int faulty_rows() const;
    bool is_changed() const { return list_.rows != stored_; }

    const AnnouncedList& list() const { return list_; }
    /// The rows as they were stored.
    const std::vector<AnnouncedRow>& stored() const { return stored_; }

private:
    void read_again(std::vector<AnnouncedRow> rows);

    std::vector<AnnouncedRow> stored_;
    AnnouncedList list_;
};

} // namespace halvane
