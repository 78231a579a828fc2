// SPDX-License-Identifier: MIT
#include "report/csvwriter.h"
#include "timetable/cells.h"
#include "timetable/timetablefiles.h"

namespace halvane {

std::string csv_of(const Timetable& timetable, const PageSettings& page) {
    constexpr std::size_t usual_row = 80;
    std::string text;
    text.reserve((timetable.rows.size() + 1) * usual_row);
    for (std::size_t i = 0; i < page.columns.size(); ++i)
        (text += i == 0 ? "" : ",") += names_of(page.columns[i]).key;
    text += "\r\n";
    for (const TimetableRow& row : timetable.rows) {
        for (std::size_t i = 0; i < page.columns.size(); ++i) {
            if (i > 0)
                text += ',';
            append_csv_field(text, machine_text(timetable, row, page.columns[i]));
        }
        text += "\r\n";
    }
    return text;
}

} // namespace halvane
