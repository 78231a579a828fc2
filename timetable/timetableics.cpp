// SPDX-License-Identifier: MIT
#include "base/numberformat.h"
#include "timetable/calendartext.h"
#include "timetable/cells.h"
#include "timetable/rowtexts.h"
#include "timetable/sheetnotes.h"
#include "timetable/timetablefiles.h"

#include <string>
#include <string_view>

namespace halvane {
namespace {

TwinWords month_begins(const HijriReckoningPointer& hijri) {
    if (!hijri)
        return TwinText{"First day of the month by the tabular Hijri calendar",
                        "أول أيام الشهر حسب التقويم الهجري الحسابي"};
    return {"First day of the month: " + hijri->name.english, "أول أيام الشهر: " + hijri->name.arabic};
}

/// What the events of one timetable share, and their text as it grows.
class Calendar {
public:
    Calendar(const Timetable& timetable, const PageSettings& page, std::int64_t stamp);

    void add_day(const TimetableRow& row);
    std::string finished();

private:
    void begin_event(const std::string& date, const char* kind);
    void end_event(const std::string& summary);
    void add_moment(const TimetableRow& row, const RowTime& time, TimetableColumn column);
    void add_hijri_month(const TimetableRow& row);
    void line(std::string_view content) { text_.line(content); }

    const Profile& profile_;
    const PageSettings& page_;
    CalendarText text_;
    std::string stamp_;
    TwinWords month_begins_; ///< what is told of the first day of a Hijri month
    std::string location_line_;
    std::string geo_line_;
    std::string uid_end_;
};

TwinWords title_of(const Location& location) {
    return {"Prayer times, " + location.name, "مواقيت الصلاة، " + location.name};
}

Calendar::Calendar(const Timetable& timetable, const PageSettings& page, std::int64_t stamp)
    : profile_(timetable.settings.profile), page_(page),
      text_(text_in(page.language, title_of(timetable.settings.place.location))),
      month_begins_(month_begins(timetable.settings.hijri)) {
    const Location& location = timetable.settings.place.location;
    const double latitude = latitude_of(location);
    const double longitude = longitude_of(location);
    stamp_ = "DTSTAMP:" + calendar_moment(stamp);
    uid_end_ = '-' + calendar_place(latitude, longitude) + "@halvane";
    location_line_ = "LOCATION:" + calendar_value(location.name);
    geo_line_ = "GEO:" + format_number(latitude, "0.000000") + ';' + format_number(longitude, "0.000000");
}

/// The same in every export of a place, whatever the times and the rules are.
void Calendar::begin_event(const std::string& date, const char* kind) {
    line("BEGIN:VEVENT");
    line("UID:" + date + '-' + kind + uid_end_);
    line(stamp_);
}

void Calendar::end_event(const std::string& summary) {
    line("SUMMARY:" + summary);
    line(location_line_);
    line(geo_line_);
    line("TRANSP:TRANSPARENT");
}

// An event that has a start and neither end nor duration ends when it starts (3.6.1). The beginning of a
// prayer's time is such a moment; any length would tell of an end that it has not.
void Calendar::add_moment(const TimetableRow& row, const RowTime& time, TimetableColumn column) {
    if (!time.clock)
        return;
    const std::string summary = calendar_value(text_in(page_.language, name_of(column, page_.names)));
    begin_event(calendar_date(row.jd), names_of(column).key);
    line("DTSTART:" + calendar_moment(utc_seconds(row, *time.clock)));
    end_event(summary);
    if (is_by_rule(time.source))
        line("DESCRIPTION:" + calendar_value(text_in(page_.language, words_of(time.source, profile_))));
    if (page_.alarm_minutes) {
        line("BEGIN:VALARM");
        line("ACTION:DISPLAY");
        line("DESCRIPTION:" + summary);
        line("TRIGGER:-PT" + std::to_string(*page_.alarm_minutes) + 'M');
        line("END:VALARM");
    }
    line("END:VEVENT");
}

void Calendar::add_hijri_month(const TimetableRow& row) {
    const std::string year = ' ' + plain_number(row.hijri.year);
    const TwinWords month(hijri_month_name(row.hijri.month, Language::english) + year,
                          hijri_month_name(row.hijri.month, Language::arabic) + year);
    const std::string date = calendar_date(row.jd);
    begin_event(date, "hijri-month");
    line("DTSTART;VALUE=DATE:" + date);
    end_event(calendar_value(text_in(page_.language, month)));
    line("DESCRIPTION:" + calendar_value(text_in(page_.language, month_begins_)));
    line("END:VEVENT");
}

void Calendar::add_day(const TimetableRow& row) {
    if (row.hijri.day == 1)
        add_hijri_month(row);
    for (const DayTime prayer : prayed_times)
        add_moment(row, row.times[prayer], column_of(prayer));
    if (!row.jumuah.empty())
        add_moment(row, row.jumuah.front(), TimetableColumn::jumuah);
}

std::string Calendar::finished() {
    return text_.finished();
}

} // namespace

std::string ics_of(const Timetable& timetable, const PageSettings& page, std::int64_t stamp) {
    Calendar calendar(timetable, page, stamp);
    for (const TimetableRow& row : timetable.rows)
        calendar.add_day(row);
    return calendar.finished();
}

} // namespace halvane
