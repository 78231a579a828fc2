// SPDX-License-Identifier: MIT
#include "calendar/clocktext.h"

#include <charconv>
#include <cstddef>

namespace halvane {
namespace {

std::optional<int> two_digits(std::string_view text, std::size_t at) {
    if (text.size() < at + 2)
        return std::nullopt;
    int value = 0;
    const char* first = text.data() + at;
    const auto [end, error] = std::from_chars(first, first + 2, value);
    if (error != std::errc() || end != first + 2 || value < 0)
        return std::nullopt;
    return value;
}

} // namespace

std::optional<int> seconds_of_clock_text(std::string_view text) {
    constexpr int seconds_per_minute = 60;
    constexpr int seconds_per_hour = 3600;
    const std::optional<int> hours = two_digits(text, 0);
    const std::optional<int> minutes = two_digits(text, 3);
    if (!hours || !minutes || text[2] != ':')
        return std::nullopt;
    return *hours * seconds_per_hour + *minutes * seconds_per_minute + two_digits(text, 6).value_or(0);
}

} // namespace halvane
