// SPDX-License-Identifier: MIT
#include "calendar/modctim.h"

#include "base/failure.h"
#include "base/numberformat.h"

#include <cmath>

namespace halvane {
namespace {

/// A count of `unit`s as a clock of one day.
double wrapped(double count, double per_day) {
    const double rest = std::fmod(count, per_day);
    return rest < 0 ? rest + per_day : rest;
}

void append_two_digits(std::string& text, double value) {
    append_number(text, value, "00");
}

std::string seconds_text(double hour, double minute, double second) {
    if (hour == 23 && minute == 59 && second >= 59.5)
        return "24:00:00";
    const double seconds = wrapped(wrapped(hour, 24) * 3600 + minute * 60 + std::nearbyint(second), 86400);
    const double h = std::floor(seconds / 3600);
    const double m = std::floor((seconds - h * 3600) / 60);
    std::string text;
    append_two_digits(text, h);
    append_two_digits(text += ':', m);
    append_two_digits(text += ':', seconds - h * 3600 - m * 60);
    return text;
}

std::string minutes_text(int precision, double hour, double minute, double second) {
    if (hour == 23 && minute == 59 && second >= 29.5 && precision == 1)
        return "24:00";
    const double minutes = wrapped(wrapped(hour, 24) * 60 + std::nearbyint(minute + second / 60), 1440);
    const double h = std::floor(minutes / 60);
    std::string text;
    append_two_digits(text, h);
    append_two_digits(text += ':', minutes - h * 60);
    return text;
}

} // namespace

std::string modctim(int precision, double hours) {
    require_finite(hours, {"a clock time", "وقت"});
    const double hour = std::floor(hours);
    const double x = (hours - hour) * 60;
    const double minute = std::floor(x);
    const double second = (x - minute) * 60;
    return precision == 0 ? seconds_text(hour, minute, second)
                          : minutes_text(precision, hour, minute, second);
}

void modctim(int precision, double hours, std::string& text) {
    text = modctim(precision, hours);
}

} // namespace halvane
