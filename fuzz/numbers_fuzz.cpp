// SPDX-License-Identifier: MIT
#include "base/failure.h"
#include "base/numberformat.h"
#include "base/record.h"
#include "fuzz/require.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

using namespace halvane;
using fuzz::require;

/// The longest start of `text` that is a number: an optional sign, then digits with at most one point.
std::size_t number_length(const std::string& text) {
    const std::size_t sign = text.find_first_not_of("+-") == 1 ? 1 : 0;
    const std::size_t whole = std::min(text.find_first_not_of("0123456789", sign), text.size());
    if (whole == text.size() || text[whole] != '.')
        return whole == sign ? 0 : whole;
    const std::size_t end = std::min(text.find_first_not_of("0123456789", whole + 1), text.size());
    return end - sign == 1 ? 0 : end;
}

/// The number at the start of a text, read by the C library in its own locale.
double expected_prefix(const std::string& text) {
    const double value = std::strtod(text.substr(0, number_length(text)).c_str(), nullptr);
    return std::isfinite(value) ? value : 0;
}

void check_prefix(const std::string& text) {
    const double value = numeric_prefix(text);
    const double expected = expected_prefix(text);
    // A number below the smallest one may be 0 or that smallest.
    require(value == expected || (std::fabs(expected) < 1e-300 && value == 0));
    const std::string stored = plain_number(value);
    require(numeric_prefix(stored) == value && stored.find_first_not_of("-.0123456789") == std::string::npos);
}

/// A text of a pattern reads back as the number within half a unit of its last place.
void check_pattern(double value, const char* pattern, double unit) {
    try {
        const std::string text = format_number(value, pattern);
        require(std::isfinite(value));
        const double back = std::strtod(text.c_str(), nullptr);
        require(std::fabs(back - value) <= 0.5 * unit + 1e-15 * std::fabs(value));
    } catch (const RunTimeFailure&) {
        require(!std::isfinite(value));
    }
}

} // namespace

/// A typed text as a number, and a number as a text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    check_prefix(std::string(data, data + size));
    double value = 0;
    if (size < sizeof value)
        return 0;
    std::memcpy(&value, data, sizeof value);
    check_pattern(value, "##00", 1);
    check_pattern(value, "###0.00", 0.01);
    check_pattern(value, "##########00.00", 0.01);
    check_pattern(value, "00.000000", 0.000001);
    return 0;
}
