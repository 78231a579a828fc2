// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "timetable/daytimes.h"

#include <span>
#include <string_view>

namespace halvane {

/// How a clock is brought to its minute (or second).
enum class Rounding { nearest, up, down };

/// The rules that an authority has published, with where they are told.
struct Authority {
    const char* key = ""; ///< small letters, digits and "-"
    TwinText name{};
    const char* region = "";
    double fajer_angle = 0;          ///< depression of the Sun                                   [deg]
    double isha_angle = 0;           ///< the same; 0 where Isha follows Maghreb by an interval    [deg]
    double isha_minutes = 0;         ///< after Maghreb; 0 where the angle counts                  [min]
    double isha_minutes_ramadan = 0; ///< in its place in Ramadan; 0 as on other days              [min]
    double maghreb_angle = 0;        ///< depression of the Sun; 0 sunset                          [deg]
    OfSix<double> added{};           ///< minutes; one that the sources do not settle is 0         [min]
    const char* source = "";
    Rounding rounding = Rounding::nearest;
    bool hanafi = false;            ///< the Hanafi shadow at Aser
    bool night_until_fajer = false; ///< its middle is that of sunset to Fajer, not to sunrise
};

/// Every authority.
std::span<const Authority> authorities();

/// The authority of a key; nullptr for any other text.
const Authority* find_authority(std::string_view key);

} // namespace halvane
