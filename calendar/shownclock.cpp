// SPDX-License-Identifier: MIT
#include "calendar/shownclock.h"

#include "base/failure.h"
#include "base/numberformat.h"

#include <cmath>

namespace halvane {
namespace {

constexpr int seconds_per_minute = 60;
constexpr int seconds_per_hour = 3600;
constexpr int seconds_per_day = 86400;

/// A count of `unit`s as a clock of one day.
double wrapped(double count, double per_day) {
    const double rest = std::fmod(count, per_day);
    return rest < 0 ? rest + per_day : rest;
}

int to_second(double hour, double minute, double second) {
    if (hour == 23 && minute == 59 && second >= 59.5)
        return seconds_per_day;
    return static_cast<int>(wrapped(wrapped(hour, 24) * 3600 + minute * 60 + std::nearbyint(second), 86400));
}

int to_minute(int precision, double hour, double minute, double second) {
    if (hour == 23 && minute == 59 && second >= 29.5 && precision == 1)
        return seconds_per_day;
    return static_cast<int>(wrapped(wrapped(hour, 24) * 60 + std::nearbyint(minute + second / 60), 1440)) *
           seconds_per_minute;
}

} // namespace

ShownClock shown_clock(int precision, double hours) {
    require_finite(hours, {"a clock time", "وقت"});
    const double hour = std::floor(hours);
    const double x = (hours - hour) * 60;
    const double minute = std::floor(x);
    const double second = (x - minute) * 60;
    if (precision == 0)
        return {to_second(hour, minute, second), true};
    return {to_minute(precision, hour, minute, second), false};
}

std::string text_of(const ShownClock& clock) {
    const char* two_digits = "00";
    const int hours = clock.seconds / seconds_per_hour;
    const int minutes = clock.seconds / seconds_per_minute % 60;
    std::string text;
    append_number(text, hours, two_digits);
    append_number(text += ':', minutes, two_digits);
    if (clock.to_second)
        append_number(text += ':', clock.seconds % seconds_per_minute, two_digits);
    return text;
}

ShownTime shown_time(const TaggedTime& time, int precision) {
    const double* hours = hours_of(time);
    return hours != nullptr ? ShownTime(shown_clock(precision, *hours)) : std::get<NoEvent>(time);
}

} // namespace halvane
