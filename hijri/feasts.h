// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "calendar/hijricalendar.h"
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

    bool is_of_each_month() const { return month == 0; }
};

/// Every feast, in the order of the year; the white days (of every month) at the end.
std::span<const Feast> feasts();

/// Those of a date. The 13th of Thul Hejjah is a day of Tashriq and no white day.
std::vector<const Feast*> feasts_of(const HijriDate& date);

/// Its name, with "(night before)" where it is of the night.
TwinWords words_of(const Feast& feast);

/// A feast in a month, on days one after the other.
struct KeptFeast {
    const Feast* feast;
    int first; ///< day of the month
    int days;
};

/// In the order of their first days. In     days  of the month, as its rule has them
std::vector<KeptFeast> feasts_of_month(HijriMonthNumber month, int days);

} // namespace halvane
