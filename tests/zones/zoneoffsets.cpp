// SPDX-License-Identifier: MIT
// zoneoffsets: what TimeZone answers to the lines of standard input, a line for each:
//   names                    the names of all zones
//   noons ZONE FIRST LAST    day and offset at noon where it is another than the day's before; days are
//   modified
//                            Julian days
//   noon ZONE DAY ...        offset at the noon of each day
//   at ZONE SECOND ...       offset at each second after 1970; a "!" behind it where the Julian day gives
//   another
#include "zones/timezone.h"

#include <cstdint>
#include <iostream>
#include <limits>
#include <sstream>
#include <string>

namespace {

constexpr double mjd_zero = 2400000.5;
constexpr double jd_of_1970 = 2440587.5;
constexpr double seconds_per_day = 86400;

void write_noons(const halvane::TimeZone& zone, std::istream& line) {
    int first = 0;
    int last = 0;
    line >> first >> last;
    int before = std::numeric_limits<int>::max();
    for (int day = first; day <= last; ++day) {
        const int offset = zone.offset_on(mjd_zero + day);
        if (offset != before)
            std::cout << day << ' ' << offset << ' ';
        before = offset;
    }
}

void write_noons_of_days(const halvane::TimeZone& zone, std::istream& line) {
    for (int day = 0; line >> day;)
        std::cout << zone.offset_on(mjd_zero + day) << ' ';
}

void write_instants(const halvane::TimeZone& zone, std::istream& line) {
    for (std::int64_t second = 0; line >> second;) {
        const int offset = zone.offset_at_second(second);
        const double jd = jd_of_1970 + static_cast<double>(second) / seconds_per_day;
        std::cout << offset << (zone.offset_at(jd) == offset ? " " : "! ");
    }
}

void answer(std::istream& line) {
    std::string what;
    line >> what;
    if (what == "names") {
        for (const std::string& name : halvane::zone_names())
            std::cout << name << ' ';
        return;
    }
    std::string name;
    line >> name;
    const halvane::TimeZone zone(name);
    if (what == "noons")
        write_noons(zone, line);
    else if (what == "noon")
        write_noons_of_days(zone, line);
    else if (what == "at")
        write_instants(zone, line);
}

} // namespace

int main() {
    std::ios::sync_with_stdio(false);
    for (std::string text; std::getline(std::cin, text);) {
        std::istringstream line(text);
        answer(line);
        std::cout << '\n';
    }
}
