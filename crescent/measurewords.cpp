// SPDX-License-Identifier: MIT
#include "crescent/measurewords.h"

#include "base/numberformat.h"

namespace halvane {

TwinWords operator+(const TwinWords& first, const TwinWords& second) {
    return {first.english + second.english, first.arabic + second.arabic};
}

TwinWords plain_words(const std::string& text) {
    return {text, text};
}

TwinWords number_words(double value, std::string_view pattern) {
    return plain_words(format_number(value, pattern));
}

TwinWords measure_words(double value, std::string_view unit) {
    if (unit == "deg")
        return number_words(value, "0.00") + plain_words("°");
    if (unit == "min")
        return number_words(value, "0.0") + TwinText{" min", " دقيقة"};
    return number_words(value, "0.000");
}

} // namespace halvane
