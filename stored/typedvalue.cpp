// SPDX-License-Identifier: MIT
#include "stored/typedvalue.h"

#include "base/numberformat.h"

#include <charconv>
#include <cstddef>
#include <limits>
#include <system_error>

namespace halvane {

bool take_number(std::string_view text, double least, double most, double& value) {
    double number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    // A number that is none compares false.
    if (error != std::errc() || stop != end || !(number >= least && number <= most))
        return false;
    value = number;
    return true;
}

std::string range_words(const char* what, double least, double most) {
    if (most == std::numeric_limits<double>::max())
        return what;
    return std::string(what) + " from " + plain_number(least) + " to " + plain_number(most);
}

std::string choice_of_letters(std::string_view letters) {
    std::string words;
    for (std::size_t i = 0; i < letters.size(); ++i) {
        if (i > 0)
            words += i + 1 < letters.size() ? ", " : " or ";
        words += letters[i];
    }
    return words;
}

std::string unit_of_meaning(std::string_view meaning) {
    const std::size_t begin = meaning.rfind('[');
    if (begin == std::string_view::npos || !meaning.ends_with(']'))
        return {};
    return std::string(meaning.substr(begin + 1, meaning.size() - begin - 2));
}

} // namespace halvane
