// SPDX-License-Identifier: MIT
#include "calendar/moddegree.h"

#include "base/numberformat.h"

#include <cmath>

namespace halvane {
namespace {

struct Parts {
    double whole, minutes, seconds;
};

Parts to_minute(double magnitude) {
    Parts parts{std::floor(magnitude), 0, 0};
    parts.minutes = std::nearbyint((magnitude - parts.whole) * 60);
    if (parts.minutes == 60) {
        parts.minutes = 0;
        parts.whole += 1;
    }
    return parts;
}

Parts to_second(double magnitude) {
    Parts parts{std::floor(magnitude), 0, 0};
    const double x = (magnitude - parts.whole) * 60;
    parts.minutes = std::floor(x);
    parts.seconds = std::nearbyint((x - parts.minutes) * 60);
    if (parts.seconds == 60) {
        parts.seconds = 0;
        parts.minutes += 1;
    }
    if (parts.minutes == 60) {
        parts.minutes = 0;
        parts.whole += 1;
    }
    return parts;
}

struct Marks {
    const char *after_degrees, *after_minutes, *after_seconds;
};

constexpr Marks angle_marks{"°:", "'", "\""};
constexpr Marks plain_marks{":", "", ""};

void append_digits(std::string& text, double value) {
    append_number(text, value, "##00");
}

void append_angle(std::string& text, int level, char unit, double value, const Marks& marks) {
    const bool minutes_only = level == 1;
    const bool is_angle = unit == 'd';
    const Parts parts = minutes_only ? to_minute(std::fabs(value)) : to_second(std::fabs(value));
    append_digits(text, parts.whole);
    text += is_angle ? marks.after_degrees : "H ";
    append_digits(text, parts.minutes);
    text += is_angle ? marks.after_minutes : "M ";
    if (minutes_only)
        return;
    text += is_angle ? ":" : "";
    append_digits(text, parts.seconds);
    text += is_angle ? marks.after_seconds : "S ";
}

const char* sign_of(double value) {
    return value < 0 ? "-" : "+";
}

} // namespace

std::string moddegree(int level, char unit, double value) {
    std::string text = sign_of(value);
    append_angle(text, level, unit, value, angle_marks);
    return text;
}

std::string moddegree2(int level, char unit, double value) {
    std::string text = sign_of(value);
    append_angle(text, level, unit, value, plain_marks);
    return text;
}

std::string moddegree3(int level, char unit, double value) {
    std::string text;
    append_angle(text, level, unit, value, plain_marks);
    return text;
}

void moddegree(int level, char unit, double value, std::string& text) {
    text = moddegree(level, unit, value);
}

void moddegree2(int level, char unit, double value, std::string& text) {
    text = moddegree2(level, unit, value);
}

void moddegree3(int level, char unit, double value, std::string& text) {
    text = moddegree3(level, unit, value);
}

} // namespace halvane
