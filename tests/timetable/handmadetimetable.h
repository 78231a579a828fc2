// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/places.h"
#include "timetable/timetable.h"

namespace halvane {

/// A clock three hours ahead of Universal Time.
inline RowTime clock_of_row(int hours, int minutes, int day = 0) {
    RowTime time;
    time.clock = LocalClock{day, hours * 3600 + minutes * 60, 3 * 3600};
    return time;
}

inline RowTime no_time(NoEvent reason) {
    RowTime time;
    time.missing = reason;
    return time;
}

/// Wednesday to Friday, 18 to 20 February 2026, of a place in Amman whose clock is three hours ahead; typed
/// by hand, as round times of no sky. The Wednesday is the first day of Ramadan 1447.
inline Timetable handmade_timetable() {
    Timetable timetable;
    timetable.settings.place.location = place_at({35, 56}, {31, 57}, 3, "Amman");
    timetable.settings.place.location.elevation = 779;
    // Julian day of 1 January 2026, 0 h: 2461041.5.
    timetable.settings.span = {SpanKind::dates, 2461041.5 + 48, 2461041.5 + 50};
    for (int i = 0; i < 3; ++i) {
        TimetableRow row;
        row.jd = timetable.settings.span.first + i;
        row.date = {2026, 2, 18.0 + i};
        row.hijri = {1447, 9, 1.0 + i};
        row.weekday = 3 + i;
        row.offset = 3 * 3600;
        row.times[DayTime::fajer] = clock_of_row(5, 10 - i);
        row.times[DayTime::shuroq] = clock_of_row(6, 30 - i);
        row.times[DayTime::dhohur] = clock_of_row(11, 51);
        row.times[DayTime::aser] = row.aser_standard = clock_of_row(15, i);
        row.aser_hanafi = clock_of_row(15, 45 + i);
        row.times[DayTime::maghreb] = clock_of_row(17, 24 + i);
        row.times[DayTime::isha] = clock_of_row(18, 40 + i);
        timetable.rows.push_back(row);
    }
    return timetable;
}

} // namespace halvane
