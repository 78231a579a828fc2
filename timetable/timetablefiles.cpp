// SPDX-License-Identifier: MIT
#include "timetable/timetablefiles.h"

#include <stdexcept>

namespace halvane {

const char* name_of(TimetableFormat format) {
    switch (format) {
    case TimetableFormat::csv:
    case TimetableFormat::display_csv:
        return "csv";
    case TimetableFormat::ics:
        return "ics";
    case TimetableFormat::json:
        return "json";
    case TimetableFormat::html:
        return "html";
    case TimetableFormat::pdf:
        return "pdf";
    }
    throw std::logic_error("a format of timetables without a name");
}

std::span<const TimetableFormat> timetable_formats() {
    static constexpr TimetableFormat formats[] = {TimetableFormat::csv, TimetableFormat::ics,
                                                  TimetableFormat::json, TimetableFormat::html,
                                                  TimetableFormat::pdf};
    return formats;
}

PageSettings with_rules(const Timetable& timetable, PageSettings page) {
    if (!timetable.rules.empty() && !page.shows(TimetableColumn::rules))
        page.columns.push_back(TimetableColumn::rules);
    return page;
}

std::string file_name_of(std::string place) {
    for (char& c : place)
        if (c == '/' || c == '\\' || static_cast<unsigned char>(c) < ' ')
            c = '-';
    return place;
}

std::string text_of_timetable(const Timetable& timetable, const PageSettings& page, TimetableFormat format,
                              std::int64_t stamp) {
    switch (format) {
    case TimetableFormat::csv:
        return csv_of(timetable, page);
    case TimetableFormat::display_csv:
        return display_csv_of(timetable);
    case TimetableFormat::ics:
        return ics_of(timetable, page, stamp);
    case TimetableFormat::json:
        return json_of(timetable, page);
    case TimetableFormat::html:
        return html_of(timetable, page);
    case TimetableFormat::pdf:
        break;
    }
    throw std::logic_error("the painter makes the PDF");
}

} // namespace halvane
