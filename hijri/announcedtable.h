// SPDX-License-Identifier: MIT
#pragma once

#include "hijri/announcededit.h"
#include "hijri/celltable.h"
#include "panel/formlanguage.h"

namespace halvane {

/// The list of announced starts as a table to be edited; what is wrong with a row stands at its end, in
/// words.
class AnnouncedTable : public CellTable {
    Q_OBJECT
public:
    explicit AnnouncedTable(QWidget* parent = nullptr);

    void show_list(AnnouncedList list, Language language);
    /// Adds a row for a month and begins the edit of its day.
    void add(HijriMonthNumber month);
    void remove_current();

    const AnnouncedEdit& list_edit() const { return edit_; }

signals:
    void edited();

private:
    void take(int row, int column);
    void show_rows();

    AnnouncedEdit edit_;
    Language language_ = Language::english;
};

} // namespace halvane
