// SPDX-License-Identifier: MIT
#include "batch/clocktime.h"

#include <charconv>
#include <cstddef>

namespace halvane {
namespace {

/// Takes `mark` from the start of `rest`.
bool take_mark(std::string_view& rest, char mark) {
    if (!rest.starts_with(mark))
        return false;
    rest.remove_prefix(1);
    return true;
}

/// Takes a number of exactly `digits` digits from the start of `rest`.
bool take_number(std::string_view& rest, std::size_t digits, unsigned lowest, unsigned highest, int& number) {
    if (rest.size() < digits)
        return false;
    const char* end = rest.data() + digits;
    unsigned value = 0; // takes no sign
    const auto [stop, error] = std::from_chars(rest.data(), end, value);
    if (error != std::errc() || stop != end || value < lowest || value > highest)
        return false;
    number = static_cast<int>(value);
    rest.remove_prefix(digits);
    return true;
}

} // namespace

std::optional<MachineTime> clock_time(std::string_view text) {
    MachineTime time;
    const bool before_year_0 = take_mark(text, '-');
    const bool is_whole = take_number(text, 4, 0, 9999, time.year) && take_mark(text, '-') &&
                          take_number(text, 2, 1, 12, time.month) && take_mark(text, '-') &&
                          take_number(text, 2, 1, 31, time.day) && take_mark(text, 'T') &&
                          take_number(text, 2, 0, 23, time.hour) && take_mark(text, ':') &&
                          take_number(text, 2, 0, 59, time.minute) && text.empty();
    if (!is_whole)
        return std::nullopt;
    if (before_year_0)
        time.year = -time.year;
    return time;
}

} // namespace halvane
