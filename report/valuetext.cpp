// SPDX-License-Identifier: MIT
#include "report/valuetext.h"

#include "base/failure.h"
#include "base/numberformat.h"
#include "calendar/civildate.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string_view>

namespace halvane {
namespace {

constexpr std::int64_t us_per_second = 1'000'000;
constexpr std::int64_t us_per_minute = 60 * us_per_second;
constexpr std::int64_t us_per_hour = 60 * us_per_minute;
constexpr std::int64_t us_per_day = 24 * us_per_hour;

void append_count(std::string& text, std::int64_t count, std::string_view pattern) {
    append_number(text, static_cast<double>(count), pattern);
}

std::string clock_text(std::int64_t us) {
    std::string text;
    append_count(text, us / us_per_hour, "00");
    append_count(text += ':', us % us_per_hour / us_per_minute, "00");
    append_count(text += ':', us % us_per_minute / us_per_second, "00");
    append_count(text += '.', us % us_per_second, "000000");
    return text;
}

/// Microseconds of hours from 0 to 24.
std::int64_t us_of(double hours) {
    return static_cast<std::int64_t>(std::nearbyint(hours * us_per_hour));
}

} // namespace

std::string iso_date(const DateNumbers& date) {
    std::string text = date.year < 0 ? "-" : "";
    append_number(text, std::fabs(date.year), "0000");
    append_number(text += '-', date.month, "00");
    append_number(text += '-', date.day, "00");
    return text;
}

std::string iso_clock(double hours) {
    const double rest = std::fmod(require_finite(hours, {"a clock time", "وقت"}), 24);
    return clock_text(us_of(rest < 0 ? rest + 24 : rest));
}

std::optional<std::string> iso_time(const TaggedTime& time) {
    if (const double* hours = hours_of(time))
        return iso_clock(*hours);
    switch (std::get<NoEvent>(time)) {
    case NoEvent::up:
        return "up";
    case NoEvent::down:
        return "down";
    case NoEvent::bright:
        return "bright";
    case NoEvent::dark:
        return "dark";
    case NoEvent::none:
        break;
    }
    return std::nullopt;
}

std::string iso_moment(double jd) {
    require_finite(jd, {"a date", "تاريخ"});
    const std::int64_t us = us_of(hours_of_day(jd));
    const bool next_day = us == us_per_day;
    return iso_date(civil_date(next_day ? jd + 0.5 : jd)) + "T" + clock_text(next_day ? 0 : us);
}

std::string exact_number(double value) {
    require_finite(value, {"a number of the table", "رقم في الجدول"});
    std::array<char, 32> digits{};
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    return {digits.data(), end};
}

} // namespace halvane
