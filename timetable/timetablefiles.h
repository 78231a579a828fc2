// SPDX-License-Identifier: MIT
#pragma once

#include "timetable/timetable.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace halvane {

/// The formats of a timetable.
enum class TimetableFormat { csv, display_csv, ics, json, html, pdf };

/// "csv", "ics", "json", "html", "pdf"; its ending is the same.
const char* name_of(TimetableFormat format);
std::span<const TimetableFormat> timetable_formats();

/// A place's name as the name of a file, without an ending.
std::string file_name_of(std::string place);

/// The name of the layout that display_csv_of writes.
inline constexpr const char* display_layout = "display";
/// The columns that its rows need.
std::vector<TimetableColumn> display_columns();

/// A page with the column of rules, where a rule has made a time: CSV has no other place for the marks.
PageSettings with_rules(const Timetable& timetable, PageSettings page);

/// The text of a timetable in a format but PDF, whose painter needs more than this room.
/// In     stamp  seconds since 1970 of the export                                                [s]
std::string text_of_timetable(const Timetable& timetable, const PageSettings& page, TimetableFormat format,
                              std::int64_t stamp);

// The texts of a timetable in a format; each is whole.

/// RFC 4180: a row of keys, then the days; UTF-8, CR LF.
std::string csv_of(const Timetable& timetable, const PageSettings& page);
/// The columns that screens of mosques read: times of 24 hours, one year.
std::string display_csv_of(const Timetable& timetable);
/// RFC 5545: an event for each prayer.
/// In     stamp  seconds since 1970 of the export (DTSTAMP)                                      [s]
std::string ics_of(const Timetable& timetable, const PageSettings& page, std::int64_t stamp);
/// One object: settings, notes, rows with instants (docs/timetable.schema.json).
std::string json_of(const Timetable& timetable, const PageSettings& page);
/// One file that needs no script and nothing beside it.
std::string html_of(const Timetable& timetable, const PageSettings& page);

} // namespace halvane
