// SPDX-License-Identifier: MIT
#include "base/failure.h"
#include "base/numberformat.h"
#include "base/version.h"
#include "timetable/cells.h"
#include "timetable/rowtexts.h"
#include "timetable/sheetnotes.h"
#include "timetable/timetablefiles.h"

#include <chrono>
#include <cmath>
#include <string>
#include <string_view>

namespace halvane {
namespace {

constexpr std::size_t most_octets = 75; // of a content line (RFC 5545, 3.1)
constexpr double jd_of_1970 = 2440587.5;

bool continues_character(char octet) {
    return (static_cast<unsigned char>(octet) & 0xC0U) == 0x80U;
}

/// Where a line is cut so that no character is.
std::size_t cut_of(std::string_view line, std::size_t octets) {
    while (octets > 1 && continues_character(line[octets]))
        --octets;
    return octets;
}

/// A content line, folded, behind `text`.
void append_line(std::string& text, std::string_view line) {
    for (std::size_t room = most_octets; line.size() > room; room = most_octets - 1) {
        const std::size_t cut = cut_of(line, room);
        (text += line.substr(0, cut)) += "\r\n ";
        line.remove_prefix(cut);
    }
    (text += line) += "\r\n";
}

/// A value of the type TEXT (3.3.11).
std::string escaped(const std::string& text) {
    std::string value;
    for (const char c : as_utf8(text)) {
        if (c == '\n')
            value += "\\n";
        else if (c == '\\' || c == ';' || c == ',')
            (value += '\\') += c;
        else if (c == '\t' || (static_cast<unsigned char>(c) >= ' ' && c != '\x7f'))
            value += c;
    }
    return value;
}

/// "20260218", by the Gregorian calendar also before 1582.
std::string date_text(std::chrono::sys_days day) {
    const std::chrono::year_month_day date{day};
    const int year{date.year()};
    if (year < 1 || year > 9999)
        throw RunTimeFailure({"A calendar file holds the years from 1 to 9999 only.",
                              "ملف التقويم لا يتسع إلا للسنوات من 1 إلى 9999."});
    std::string text;
    append_two_digits(text, year / 100);
    append_two_digits(text, year % 100);
    append_two_digits(text, static_cast<int>(static_cast<unsigned>(date.month())));
    append_two_digits(text, static_cast<int>(static_cast<unsigned>(date.day())));
    return text;
}

std::string date_text(const TimetableRow& row) {
    const auto days = static_cast<int>(std::lround(row.jd - jd_of_1970));
    return date_text(std::chrono::sys_days{std::chrono::days{days}});
}

/// "20260218T020500Z"
std::string utc_text(std::int64_t utc) {
    const std::chrono::sys_seconds instant{std::chrono::seconds{utc}};
    const auto day = std::chrono::floor<std::chrono::days>(instant);
    const auto seconds = static_cast<int>((instant - day).count());
    std::string text = date_text(day) + 'T';
    append_two_digits(text, seconds / 3600);
    append_two_digits(text, seconds / 60 % 60);
    append_two_digits(text, seconds % 60);
    return text + 'Z';
}

/// Ten-thousandths of a degree, about ten metres, and the hemisphere: "319539n".
std::string place_part(double degrees, const char* hemispheres) {
    const long rounded = std::lround(degrees * 10000);
    return std::to_string(std::labs(rounded)) + hemispheres[rounded < 0 ? 1 : 0];
}

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
    void line(std::string_view content) { append_line(text_, content); }

    const Profile& profile_;
    const PageSettings& page_;
    std::string text_;
    std::string stamp_;
    TwinWords month_begins_;  ///< what is told of the first day of a Hijri month
    std::string place_lines_; ///< LOCATION and GEO, folded
    std::string uid_end_;
};

Calendar::Calendar(const Timetable& timetable, const PageSettings& page, std::int64_t stamp)
    : profile_(timetable.settings.profile), page_(page),
      month_begins_(month_begins(timetable.settings.hijri)) {
    const Location& location = timetable.settings.place.location;
    const double latitude = latitude_of(location);
    const double longitude = longitude_of(location);
    stamp_ = "DTSTAMP:" + utc_text(stamp);
    uid_end_ = '-' + place_part(latitude, "ns") + place_part(longitude, "ew") + "@halvane";
    append_line(place_lines_, "LOCATION:" + escaped(location.name));
    append_line(place_lines_,
                "GEO:" + format_number(latitude, "0.000000") + ';' + format_number(longitude, "0.000000"));

    const TwinWords title("Prayer times, " + location.name, "مواقيت الصلاة، " + location.name);
    line("BEGIN:VCALENDAR");
    line("VERSION:2.0");
    line(std::string("PRODID:-//Halvane//Halvane ") + version + "//EN");
    line("CALSCALE:GREGORIAN");
    line("X-WR-CALNAME:" + escaped(text_in(page.language, title)));
}

/// The same in every export of a place, whatever the times and the rules are.
void Calendar::begin_event(const std::string& date, const char* kind) {
    line("BEGIN:VEVENT");
    line("UID:" + date + '-' + kind + uid_end_);
    line(stamp_);
}

void Calendar::end_event(const std::string& summary) {
    line("SUMMARY:" + summary);
    text_ += place_lines_;
    line("TRANSP:TRANSPARENT");
}

// An event that has a start and neither end nor duration ends when it starts (3.6.1). The beginning of a
// prayer's time is such a moment; any length would tell of an end that it has not.
void Calendar::add_moment(const TimetableRow& row, const RowTime& time, TimetableColumn column) {
    if (!time.clock)
        return;
    const std::string summary = escaped(text_in(page_.language, name_of(column, page_.names)));
    begin_event(date_text(row), names_of(column).key);
    line("DTSTART:" + utc_text(utc_seconds(row, *time.clock)));
    end_event(summary);
    if (is_by_rule(time.source))
        line("DESCRIPTION:" + escaped(text_in(page_.language, words_of(time.source, profile_))));
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
    const std::string date = date_text(row);
    begin_event(date, "hijri-month");
    line("DTSTART;VALUE=DATE:" + date);
    end_event(escaped(text_in(page_.language, month)));
    line("DESCRIPTION:" + escaped(text_in(page_.language, month_begins_)));
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
    line("END:VCALENDAR");
    return std::move(text_);
}

} // namespace

std::string ics_of(const Timetable& timetable, const PageSettings& page, std::int64_t stamp) {
    Calendar calendar(timetable, page, stamp);
    for (const TimetableRow& row : timetable.rows)
        calendar.add_day(row);
    return calendar.finished();
}

} // namespace halvane
