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

std::string civil_month_name(int month, Language language) {
    if (month < 1 || month > 12)
        return {};
    return months[static_cast<std::size_t>(month - 1)].in(language);
}

void modmonth(int month, char letter, std::string& name) {
    const std::string found = civil_month_name(month, letter == 'E' ? Language::english : Language::arabic);
    if (!found.empty())
        name = found;
}

} // namespace halvane
