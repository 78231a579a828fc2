// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// Day count of a date of the platform's calendar, proleptic Gregorian for every year. A day past its month's
/// end rolls into the next month, a month past the year's end into the next year; fractions are rounded half
/// to even.
double platform_day_count(double year, double month, double day);

} // namespace halvane
