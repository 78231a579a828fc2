// SPDX-License-Identifier: MIT
#pragma once

#include "base/language.h"

#include <string>
#include <string_view>

namespace halvane {

/// A date of the tabular Hijri calendar.
struct HijriDate {
    double year = 0;
    double month = 0; ///< 1 Muharram to 12 Thul Hejjah
    double day = 0;
};

/// Tabular Hijri date of a day.
/// In     day_number  Julian day of the day's noon, a whole number      [d]
/// Pure arithmetic, no crescent, no location. Source the tabular calendar of 30-year cycles with its epoch at
/// 16 July 622 (Julian calendar).
HijriDate hijri_of_day_number(double day_number);

/// Julian day of the noon of a tabular Hijri date; a day past the month's end runs on into the next month.
double day_number_of_hijri(double year, double month, double day);

/// Tabular Hijri date of a civil date, as modjul takes it.
HijriDate hijri_of_civil(double year, double month, double day);

/// Name of a Hijri month.
/// In     month  1 to 12; an empty text for any other
std::string hijri_month_name(double month, Language language);

/// Gregorian to Hijri: the named routine over hijri_of_civil and hijri_month_name.
/// In     day, month, year  civil date as modjul takes it
///        direction         "GtoH"; with any other the outputs keep what they held
///        letter            'A' Arabic month name, any other English
/// Out    hijri_day, hijri_month (name), hijri_year
void moddateconv(double day, double month, double year, std::string_view direction, char letter,
                 double& hijri_day, std::string& hijri_month, double& hijri_year);

} // namespace halvane
