// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// Julian day of a civil date and hour.
/// In     year, month (1 to 12), day (a fraction is taken), hours      [civil calendar, h]
/// Out    jd  Julian day; 0 h of a civil day ends in .5                [d]
/// The calendar is the Julian one up to and including 15 October 1582 0 h, the Gregorian one after it.
/// Nothing is checked: 5 to 14 October 1582 are taken as Julian dates. Source Meeus, Astronomical Algorithms,
/// chapter "Julian Day".
void modjul(double year, double month, double day, double hours, double& jd);

/// Civil date of a Julian day.
/// In     value  Julian day + 0.5; the caller adds the half day, or passes a noon as it is      [d]
/// Out    year, month, day  civil date; the day carries the fraction of `value`
/// Source Meeus, Astronomical Algorithms, chapter "Julian Day".
void modjuc(double value, double& year, double& month, double& day);

} // namespace halvane
