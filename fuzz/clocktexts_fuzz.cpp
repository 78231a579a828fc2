// SPDX-License-Identifier: MIT
#include "base/failure.h"
#include "calendar/modctim.h"
#include "calendar/moddegree.h"
#include "fuzz/require.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace {

using namespace halvane;
using fuzz::require;

/// The numbers of a text, whatever stands between them.
std::vector<double> numbers_in(const std::string& text) {
    std::vector<double> numbers;
    std::string digits;
    for (const char c : text + " ") {
        if (c >= '0' && c <= '9') {
            digits += c;
        } else if (!digits.empty()) {
            numbers.push_back(std::strtod(digits.c_str(), nullptr));
            digits.clear();
        }
    }
    return numbers;
}

/// Units of 1, 1/60 and 1/3600 as one number.
double value_of(const std::vector<double>& numbers) {
    double value = 0;
    double unit = 1;
    for (const double number : numbers) {
        value += number * unit;
        unit /= 60;
    }
    return value;
}

/// The distance of two hours on a clock of a day.
double clock_distance(double a, double b) {
    const double rest = std::fabs(std::remainder(a - b, 24));
    return rest;
}

void check_clock(int precision, double hours) {
    const std::string text = modctim(precision, hours);
    const std::vector<double> numbers = numbers_in(text);
    const std::size_t parts = precision == 0 ? 3 : 2;
    require(text.size() == 3 * parts - 1 && numbers.size() == parts);
    require(numbers[0] <= 24 && numbers[1] < 60 && (parts == 2 || numbers[2] < 60));
    require(numbers[0] < 24 || value_of(numbers) == 24);
    if (std::fabs(hours) > 1e9)
        return; // a double has no seconds there
    const double half_unit = precision == 0 ? 0.5 / 3600 : 0.5 / 60;
    require(clock_distance(value_of(numbers), hours) <= half_unit + 1e-6);
}

using AngleText = std::string (*)(int, char, double);

void check_angle(AngleText text_of_angle, bool is_signed, int level, char unit, double value) {
    const std::string text = text_of_angle(level, unit, value);
    const std::vector<double> numbers = numbers_in(text);
    const std::size_t parts = level == 1 ? 2 : 3;
    require(numbers.size() == parts && numbers[1] < 60 && (parts == 2 || numbers[2] < 60));
    require(is_signed == (text.front() == '+' || text.front() == '-'));
    require(!is_signed || (text.front() == '-') == (value < 0));
    require((unit == 'd') == (text.find('H') == std::string::npos));
    const double half_unit = level == 1 ? 0.5 / 60 : 0.5 / 3600;
    require(std::fabs(value_of(numbers) - std::fabs(value)) <= half_unit + 1e-14 * std::fabs(value) + 1e-9);
}

void check(double value) {
    for (const int precision : {0, 1, 2})
        check_clock(precision, value);
    for (const int level : {0, 1})
        for (const char unit : {'d', 'h'}) {
            check_angle(moddegree, true, level, unit, value);
            check_angle(moddegree2, true, level, unit, value);
            check_angle(moddegree3, false, level, unit, value);
        }
}

} // namespace

/// Every number has its clock and angle texts, which read back as the number; what is no number has none.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    double value = 0;
    if (size < sizeof value)
        return 0;
    std::memcpy(&value, data, sizeof value);
    try {
        check(value);
        require(std::isfinite(value));
        // Most bit patterns are far from any clock: the same bits within a week, and beside whole units.
        const double hours = std::fmod(value, 168);
        check(hours);
        check(std::round(hours * 3600) / 3600 + std::ldexp(std::fmod(value, 1.0), -20));
    } catch (const RunTimeFailure&) {
        require(!std::isfinite(value));
    }
    return 0;
}
