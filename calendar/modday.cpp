// SPDX-License-Identifier: MIT
#include "calendar/modday.h"

#include "base/twintext.h"

#include <array>
#include <cmath>

namespace halvane {
namespace {

constexpr std::array<TwinText, 7> weekdays{{{"Sunday", "الأحد"},
                                            {"Monday", "الاثنين"},
                                            {"Tuesday", "الثلاثاء"},
                                            {"Wednesday", "الأربعاء"},
                                            {"Thursday", "الخميس"},
                                            {"Friday", "الجمعة"},
                                            {"Saturday", "السبت"}}};

} // namespace

std::string weekday_name(double value, Language language) {
    const double w = value - 7 * std::floor((value + 1) / 7) + 2;
    for (std::size_t i = 0; i < weekdays.size(); ++i)
        if (w == static_cast<double>(i + 1))
            return weekdays[i].in(language);
    return {};
}

void modday(double value, int flag, std::string& name) {
    const std::string found = weekday_name(value, flag == 1 ? Language::arabic : Language::english);
    if (!found.empty())
        name = found;
}

} // namespace halvane
