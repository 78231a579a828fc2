// SPDX-License-Identifier: MIT
#include "batch/clocktime.h"
#include "fuzz/require.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

using halvane::fuzz::require;

/// The text of a time, which is the only one that reads as that time but for the sign of the year 0.
std::string text_of(const halvane::MachineTime& time, bool signed_year) {
    char text[64];
    std::snprintf(text, sizeof text, "%s%04d-%02d-%02dT%02d:%02d", signed_year ? "-" : "",
                  std::abs(time.year), time.month, time.day, time.hour, time.minute);
    return text;
}

bool is_in_range(const halvane::MachineTime& time) {
    return time.month >= 1 && time.month <= 12 && time.day >= 1 && time.day <= 31 && time.hour >= 0 &&
           time.hour <= 23 && time.minute >= 0 && time.minute <= 59 && time.second == 0;
}

/// A time within the ranges, made of the input's first bytes.
halvane::MachineTime time_from(const std::uint8_t* data) {
    return {(data[0] + 256 * data[1]) % 19999 - 9999,
            1 + data[2] % 12,
            1 + data[3] % 31,
            data[4] % 24,
            data[5] % 60,
            0};
}

} // namespace

/// Whatever the text: what is read of it lies in its ranges and has that very text, and the text of any time
/// reads as that time.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    if (const auto time = halvane::clock_time(text))
        require(is_in_range(*time) && text == text_of(*time, text.starts_with('-')));
    if (size < 6)
        return 0;
    const halvane::MachineTime made = time_from(data);
    const auto read = halvane::clock_time(text_of(made, made.year < 0));
    require(read && read->year == made.year && read->month == made.month && read->day == made.day &&
            read->hour == made.hour && read->minute == made.minute && read->second == 0);
    return 0;
}
