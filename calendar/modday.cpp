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

void modday(double value, int flag, std::string& name) {
    const double w = value - 7 * std::floor((value + 1) / 7) + 2;
    for (std::size_t i = 0; i < weekdays.size(); ++i)
        if (w == static_cast<double>(i + 1))
            name = flag == 1 ? weekdays[i].arabic : weekdays[i].english;
}

std::string modday(double value, int flag) {
    std::string name;
    modday(value, flag, name);
    return name;
}

} // namespace halvane
