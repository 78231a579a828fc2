// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "timetable/timetable.h"

#include <string>
#include <vector>

namespace halvane {

/// A heading of a sheet's table.
struct SheetColumn {
    TimetableColumn column;
    TwinWords heading;
};

/// A cell in both languages, its digits and clock as the page wants them; mostly both are alike.
struct SheetCell {
    TwinWords text;
    bool marked = false; ///< a rule made the time: `mark` follows it
};

struct SheetRow {
    std::vector<SheetCell> cells; ///< as many as there are columns
    bool friday = false;
    bool hijri_month_begins = false;
    bool clock_changes = false;
};

/// What stands behind a time that a rule has made.
inline constexpr const char* rule_mark = "*";

/// A month of a timetable as the texts of a page: the same for the printed page, the preview and HTML.
struct TimetableSheet {
    TwinWords title;        ///< "Prayer times, February 2026"
    TwinWords hijri_months; ///< "Sha'ban - Ramadan 1447"
    TwinWords place;        ///< name
    TwinWords coordinates;  ///< "31°57' N  35°56' E, 779 m"
    TwinWords zone;         ///< "Time zone Asia/Amman (UT +3)"
    TwinWords rules;        ///< "Fajer 18°, Isha 17°, Aser standard (Muslim World League)"
    std::vector<SheetColumn> columns;
    std::vector<SheetRow> rows;
    std::vector<TwinWords> notes; ///< rules of marked times, clock changes, zone differences, iqamah
    TwinWords month;              ///< "February 2026"
};

/// The sheets of a timetable: one for each civil month, or Hijri month when its span is of such.
std::vector<TimetableSheet> sheets_of(const Timetable& timetable, const PageSettings& page);

} // namespace halvane
