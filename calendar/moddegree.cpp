#include "calendar/moddegree.h"

#include "calendar/numberformat.h"

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

std::string digits(double value) {
    return format_number(value, "##00");
}

std::string angle_text(int level, char unit, double value, const Marks& marks) {
    const bool minutes_only = level == 1;
    const Parts parts = minutes_only ? to_minute(std::fabs(value)) : to_second(std::fabs(value));
    if (unit != 'd') {
        const std::string text = digits(parts.whole) + "H " + digits(parts.minutes) + "M ";
        return minutes_only ? text : text + digits(parts.seconds) + "S ";
    }
    const std::string text =
        digits(parts.whole) + marks.after_degrees + digits(parts.minutes) + marks.after_minutes;
    return minutes_only ? text : text + ":" + digits(parts.seconds) + marks.after_seconds;
}

const char* sign_of(double value) {
    return value < 0 ? "-" : "+";
}

} // namespace

void moddegree(int level, char unit, double value, std::string& text) {
    text = sign_of(value) + angle_text(level, unit, value, angle_marks);
}

void moddegree2(int level, char unit, double value, std::string& text) {
    text = sign_of(value) + angle_text(level, unit, value, plain_marks);
}

void moddegree3(int level, char unit, double value, std::string& text) {
    text = angle_text(level, unit, value, plain_marks);
}

} // namespace halvane
