// SPDX-License-Identifier: MIT
#include "timetable/calendartext.h"

#include "base/failure.h"
#include "base/version.h"
#include "timetable/cells.h"
#include "timetable/clockunits.h"
#include "timetable/rowtexts.h"

#include <chrono>
#include <cmath>

namespace halvane {
namespace {

constexpr std::size_t most_octets = 75; // of a content line (RFC 5545, 3.1)

bool continues_character(char octet) {
    return (static_cast<unsigned char>(octet) & 0xC0U) == 0x80U;
}

/// Where a line is cut so that no character is.
std::size_t cut_of(std::string_view line, std::size_t octets) {
    while (octets > 1 && continues_character(line[octets]))
        --octets;
    return octets;
}

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

/// Ten-thousandths of a degree, about ten metres, and the hemisphere: "319539n".
std::string place_part(double degrees, const char* hemispheres) {
    const long rounded = std::lround(degrees * 10000);
    return std::to_string(std::labs(rounded)) + hemispheres[rounded < 0 ? 1 : 0];
}

} // namespace

std::string calendar_value(const std::string& text) {
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

std::string calendar_date(double jd) {
    const auto days = static_cast<int>(std::lround(jd - unix_epoch));
    return date_text(std::chrono::sys_days{std::chrono::days{days}});
}

std::string calendar_moment(std::int64_t utc) {
    const std::chrono::sys_seconds instant{std::chrono::seconds{utc}};
    const auto day = std::chrono::floor<std::chrono::days>(instant);
    const auto seconds = static_cast<int>((instant - day).count());
    std::string text = date_text(day) + 'T';
    append_two_digits(text, seconds / 3600);
    append_two_digits(text, seconds / 60 % 60);
    append_two_digits(text, seconds % 60);
    return text + 'Z';
}

std::string calendar_place(double latitude, double longitude) {
    return place_part(latitude, "ns") + place_part(longitude, "ew");
}

CalendarText::CalendarText(const std::string& name) {
    line("BEGIN:VCALENDAR");
    line("VERSION:2.0");
    line(std::string("PRODID:-//Halvane//Halvane ") + version + "//EN");
    line("CALSCALE:GREGORIAN");
    line("X-WR-CALNAME:" + calendar_value(name));
}

void CalendarText::line(std::string_view content) {
    for (std::size_t room = most_octets; content.size() > room; room = most_octets - 1) {
        const std::size_t cut = cut_of(content, room);
        (text_ += content.substr(0, cut)) += "\r\n ";
        content.remove_prefix(cut);
    }
    (text_ += content) += "\r\n";
}

std::string CalendarText::finished() {
    line("END:VCALENDAR");
    return std::move(text_);
}

} // namespace halvane
