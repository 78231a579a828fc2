// SPDX-License-Identifier: MIT
#include "calendar/modday.h"

#include "base/twintext.h"

#include <array>

namespace halvane {
namespace {

// May is spelled here as the reports and the map have it; the conversion panel has a spelling of its own.
constexpr std::array<TwinText, 12> months{{{"January", "كانون ثاني"},
                                           {"February", "شباط"},
                                           {"March", "آذار"},
                                           {"April", "نيسان"},
                                           {"May", "آيار"},
                                           {"June", "حزيران"},
                                           {"July", "تموز"},
                                           {"August", "آب"},
                                           {"September", "أيلول"},
                                           {"October", "تشرين أول"},
                                           {"November", "تشرين ثاني"},
                                           {"December", "كانون أول"}}};

} // namespace

void modmonth(int month, char letter, std::string& name) {
    if (month < 1 || month > 12)
        return;
    const TwinText& names = months[static_cast<std::size_t>(month - 1)];
    name = letter == 'E' ? names.english : names.arabic;
}

std::string modmonth(int month, char letter) {
    std::string name;
    modmonth(month, letter, name);
    return name;
}

} // namespace halvane
