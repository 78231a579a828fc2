// SPDX-License-Identifier: MIT
#include "timetable/placewords.h"

#include "base/numberformat.h"
#include "calendar/modday.h"

#include <cmath>
#include <cstdlib>

namespace halvane {
namespace {

std::string offset_text(int seconds) {
    constexpr int hour = 3600;
    constexpr int minute = 60;
    const int size = std::abs(seconds);
    std::string text = (seconds < 0 ? "-" : "+") + std::to_string(size / hour);
    if (size % hour != 0) {
        const int minutes = size % hour / minute;
        text += ":" + format_number(minutes, "00");
    }
    return text;
}

/// "31°57'"
std::string degrees_text(double angle) {
    constexpr int minutes_of_degree = 60;
    const long minutes = std::lround(std::fabs(angle) * minutes_of_degree);
    return std::to_string(minutes / minutes_of_degree) + "°" +
           format_number(static_cast<double>(minutes % minutes_of_degree), "00") + "'";
}

/// The same within Arabic text, where the degrees of Arabic-Indic digits would go behind the minutes.
std::string arabic_degrees_text(double angle) {
    const std::string sign = "°";
    std::string text = degrees_text(angle);
    text.insert(text.find(sign) + sign.size(), "\u200e");
    return left_to_right(text);
}

std::string with_point(std::string text) {
    return text.ends_with('.') ? text : std::move(text) + ".";
}

} // namespace

TwinWords alike(const std::string& text) {
    return {text, text};
}

TwinWords joined(const TwinWords& a, const char* between, const TwinWords& b) {
    return {a.english + between + b.english, a.arabic + between + b.arabic};
}

TwinWords sentence(const TwinWords& words) {
    std::string english = with_point(words.english);
    if (english.front() >= 'a' && english.front() <= 'z')
        english.front() = static_cast<char>(english.front() - 'a' + 'A');
    return {std::move(english), with_point(words.arabic)};
}

TwinWords date_words(const DateNumbers& date) {
    const int month = static_cast<int>(date.month);
    const auto in = [&](Language language) {
        return plain_number(date.day) + " " + civil_month_name(month, language) + " " +
               plain_number(date.year);
    };
    return {in(Language::english), in(Language::arabic)};
}

TwinWords coordinates_words(const Location& location) {
    const double latitude = latitude_of(location);
    const double longitude = longitude_of(location);
    const std::string height = plain_number(std::round(location.elevation));
    return {degrees_text(latitude) + (latitude >= 0 ? " N, " : " S, ") + degrees_text(longitude) +
                (longitude >= 0 ? " E, " : " W, ") + height + " m",
            arabic_degrees_text(latitude) + (latitude >= 0 ? " شمالا، " : " جنوبا، ") +
                arabic_degrees_text(longitude) + (longitude >= 0 ? " شرقا، " : " غربا، ") + height + " م"};
}

std::string left_to_right(const std::string& text) {
    return "\u2066" + text + "\u2069";
}

TwinWords zone_words(const TimetablePlace& place, std::span<const int> offsets) {
    std::string text;
    for (const int offset : offsets)
        text += (text.empty() ? "UT " : ", UT ") + offset_text(offset);
    if (!place.zone)
        return {"Time zone " + text, "التوقيت " + left_to_right(text)};
    const std::string named = place.zone->name() + " (" + text + ")";
    return {"Time zone " + named, "التوقيت " + left_to_right(named)};
}

} // namespace halvane
