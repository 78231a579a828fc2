// SPDX-License-Identifier: MIT
#include "timetable/pagedigits.h"

#include <array>

namespace halvane {

std::string arabic_digits(const std::string& text) {
    constexpr std::array<const char*, 10> digits{"٠", "١", "٢", "٣", "٤", "٥", "٦", "٧", "٨", "٩"};
    std::string result;
    for (const char c : text)
        if (c >= '0' && c <= '9')
            result += digits.at(static_cast<std::size_t>(c - '0'));
        else
            result += c;
    return result;
}

TwinWords in_digits(TwinWords words, PageDigits digits) {
    if (digits == PageDigits::arabic)
        words.arabic = arabic_digits(words.arabic);
    return words;
}

} // namespace halvane
