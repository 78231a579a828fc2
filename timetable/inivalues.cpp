// SPDX-License-Identifier: MIT
#include "timetable/inivalues.h"

#include "base/numberformat.h"

#include <charconv>
#include <cmath>
#include <system_error>

namespace halvane {

std::optional<double> number_of_text(std::string_view text) {
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || error != std::errc() || end != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::string take_number(double& target, std::string_view value, double least, double greatest) {
    const std::optional<double> number = number_of_text(value);
    if (!number || *number < least || *number > greatest)
        return plain_number(least) + " ... " + plain_number(greatest);
    target = *number;
    return {};
}

} // namespace halvane
