// SPDX-License-Identifier: MIT
#include "base/numberformat.h"

#include "base/failure.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace halvane {
namespace {

template <class Float>
std::string shortest(Float value) {
    require_finite(static_cast<double>(value), {"a number to be written", "رقم يراد كتابته"});
    char digits[512];
    const Float unsigned_if_zero = value == 0 ? 0 : value;
    const auto end =
        std::to_chars(digits, digits + sizeof digits, unsigned_if_zero, std::chars_format::fixed).ptr;
    return {digits, end};
}

template <class Float>
std::string item(Float value) {
    const std::string text = shortest(value);
    return (text.front() == '-' ? "" : " ") + text + " ";
}

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

/// The decimal digits of a value that is not negative. Reports consist of whole numbers for the most part:
/// they go the short way.
const char* put_digits(char* begin, char* end, double value, int decimals) {
    constexpr double largest_exact = 9007199254740992; // 2^53
    if (decimals == 0 && value < largest_exact && value == std::floor(value))
        return std::to_chars(begin, end, static_cast<std::int64_t>(value)).ptr;
    return std::to_chars(begin, end, value, std::chars_format::fixed, decimals).ptr;
}

} // namespace

std::string format_number(double value, std::string_view pattern) {
    std::string text;
    append_number(text, value, pattern);
    return text;
}

void append_number(std::string& text, double value, std::string_view pattern) {
    require_finite(value, {"a printed number", "رقم مطبوع"});
    const std::size_t point = pattern.find('.');
    const std::string_view whole_pattern = pattern.substr(0, point);
    const auto least_digits =
        static_cast<std::size_t>(std::count(whole_pattern.begin(), whole_pattern.end(), '0'));
    const std::size_t decimals = point == std::string_view::npos ? 0 : pattern.size() - point - 1;

    char digits[512];
    digits[0] = '\0';
    const char* first = digits;
    const char* end =
        put_digits(digits, digits + sizeof digits, std::fabs(value), static_cast<int>(decimals));
    auto whole = static_cast<std::size_t>(end - first) - (decimals == 0 ? 0 : decimals + 1);
    if (*first == '0') {
        ++first;
        --whole;
    }
    if (value < 0)
        text += '-';
    if (whole < least_digits)
        text.append(least_digits - whole, '0');
    text.append(first, end);
}

std::string plain_number(double value) {
    return shortest(value);
}

std::string plain_number(float value) {
    return shortest(value);
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
