// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "calendar/moddateconv.h"

#include <span>
#include <vector>

namespace halvane {

/// A day of the Hijri year that is kept.
struct Feast {
    int month; ///< 1 to 12; 0: of every month
    int day;
    int days;        ///< one after the other, from `day` on
    const char* key; ///< its name in files
    TwinText name;
    bool of_the_night = false; ///< kept in the night before the day
};

/// Every feast, in the order of the year; the white days (of every month) at the end.
std::span<const Feast> feasts();

/// Those of a date. The 13th of Thul Hejjah is a day of Tashriq and no white day.
std::vector<const Feast*> feasts_of(const HijriDate& date);

} // namespace halvane
