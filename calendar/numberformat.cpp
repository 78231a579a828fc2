#include "calendar/numberformat.h"

#include "app/stored/failure.h"
#include "app/stored/record.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace halvane {
namespace {

template <class Float>
std::string item(Float value) {
    const std::string text = plain_number(value);
    return (text.front() == '-' ? "" : " ") + text + " ";
}

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

} // namespace

std::string format_number(double value, std::string_view pattern) {
    require_finite(value, "a printed number");
    const std::size_t point = pattern.find('.');
    const std::string_view whole_pattern = pattern.substr(0, point);
    const auto least_digits =
        static_cast<std::size_t>(std::count(whole_pattern.begin(), whole_pattern.end(), '0'));
    const std::size_t decimals = point == std::string_view::npos ? 0 : pattern.size() - point - 1;

    char digits[512];
    const auto end = std::to_chars(digits, digits + sizeof digits, std::fabs(value), std::chars_format::fixed,
                                   static_cast<int>(decimals))
                         .ptr;
    std::string text(digits, end);
    std::size_t whole = decimals == 0 ? text.size() : text.size() - decimals - 1;
    if (text.starts_with('0')) {
        text.erase(0, 1);
        --whole;
    }
    if (whole < least_digits)
        text.insert(0, least_digits - whole, '0');
    return value < 0 ? "-" + text : text;
}

std::string number_item(double value) {
    return item(value);
}

std::string number_item(float value) {
    return item(value);
}

double numeric_prefix(std::string_view text) {
    std::size_t i = 0;
    const bool negative = !text.empty() && text[0] == '-';
    if (!text.empty() && (text[0] == '-' || text[0] == '+'))
        ++i;
    const std::size_t start = i;
    bool has_digit = false;
    bool has_point = false;
    for (; i < text.size(); ++i) {
        if (is_digit(text[i]))
            has_digit = true;
        else if (text[i] == '.' && !has_point)
            has_point = true;
        else
            break;
    }
    if (!has_digit)
        return 0;
    double value = 0;
    const auto result =
        std::from_chars(text.data() + start, text.data() + i, value, std::chars_format::fixed);
    if (result.ec != std::errc())
        return 0; // more digits than any number of the engine can hold
    return negative ? -value : value;
}

} // namespace halvane
