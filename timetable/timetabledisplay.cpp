// SPDX-License-Identifier: MIT
#include "calendar/locationclock.h"
#include "report/valuetext.h"
#include "timetable/cells.h"
#include "timetable/clockunits.h"
#include "timetable/timetablefiles.h"

namespace halvane {
namespace {

constexpr const char* head = "d_date,fajr_begins,fajr_jamah,sunrise,zuhr_begins,zuhr_jamah,asr_mithl_1,"
                             "asr_mithl_2,asr_jamah,maghrib_begins,maghrib_jamah,isha_begins,isha_jamah,"
                             "is_ramadan,hijri_date\n";

/// "04:57", the nearest minute of a clock with seconds; empty where there is no time.
std::string minute_text(const RowTime& time) {
    if (!time.clock)
        return {};
    LocalClock clock = *time.clock;
    clock.seconds = (clock.seconds + 30) % static_cast<int>(seconds_per_day);
    return clock_text(clock, false);
}

/// When Dhohur is prayed together: the first Jumu'ah in its place.
const RowTime& dhohur_together(const TimetableRow& row) {
    return row.jumuah.empty() ? row.iqamah[DayTime::dhohur] : row.jumuah.front();
}

void append_day(std::string& text, const TimetableRow& row) {
    text += iso_date(row.date);
    for (const RowTime* time :
         {&row.times[DayTime::fajer], &row.iqamah[DayTime::fajer], &row.times[DayTime::shuroq],
          &row.times[DayTime::dhohur], &dhohur_together(row), &row.aser_standard, &row.aser_hanafi,
          &row.iqamah[DayTime::aser], &row.times[DayTime::maghreb], &row.iqamah[DayTime::maghreb],
          &row.times[DayTime::isha], &row.iqamah[DayTime::isha]})
        (text += ',') += minute_text(*time);
    text += row.hijri.month == ramadan ? ",1," : ",0,";
    (text += iso_hijri(row.hijri)) += '\n';
}

} // namespace

std::vector<TimetableColumn> display_columns() {
    using enum TimetableColumn;
    return {date,          fajer,          fajer_iqamah,  shuroq,      dhohur,
            dhohur_iqamah, jumuah,         aser_standard, aser_hanafi, aser_iqamah,
            maghreb,       maghreb_iqamah, isha,          isha_iqamah, hijri};
}

std::string display_csv_of(const Timetable& timetable) {
    std::string text = head;
    for (const TimetableRow& row : timetable.rows)
        append_day(text, row);
    return text;
}

} // namespace halvane
