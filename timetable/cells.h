// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "timetable/timetable.h"

#include <string>

namespace halvane {

/// The times of a row that a column shows: one, or none or some for Jumu'ah and the Sun at the Qiblah; empty
/// for a column without times.
std::vector<RowTime> times_in(const TimetableRow& row, TimetableColumn column);
bool has_times(TimetableColumn column);
bool is_iqamah(TimetableColumn column);

/// The column of a time of the day.
TimetableColumn column_of(DayTime time);

/// Two digits of a number from 0 to 99, put behind `text`.
void append_two_digits(std::string& text, int number);

/// "04:57", or "04:57:12".
std::string clock_text(const LocalClock& clock, bool seconds);

/// The same on a page's face: "4:57 am" in 12 hours.
TwinWords clock_words(const LocalClock& clock, bool seconds, ClockFace face);

/// The value of a column as CSV has it: ISO date, "1447-09-01", "Friday", "04:57", "waxing_crescent"; an
/// empty text for a time that does not exist, several ones apart by a blank; the rules as
/// "fajer:seventh isha:seventh".
std::string machine_text(const Timetable& timetable, const TimetableRow& row, TimetableColumn column);

/// "1447-09-01"
std::string iso_hijri(const HijriDate& date);

/// "new_moon", "waxing_crescent" ...
const char* key_of(MoonOfDay moon);

} // namespace halvane
