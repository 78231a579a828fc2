// SPDX-License-Identifier: MIT
#pragma once

#include "crescent/crescentrecords.h"
#include "ephemeris/ephemeris.h"
#include "stored/date.h"

#include <array>

namespace halvane {

/// The conjunction nearest to an approximate date, for the observer's clock.
struct Conjunction {
    double dynamical = 0; ///< Julian day, dynamical time; where a map starts from                      [d]
    double local = 0;     ///< Julian day on the local clock, summer hour and zone included            [d]
    int summer_hours = 0; ///< 0 or 1, by the conjunction's own date; holds for the whole calculation
};

/// The approximate date of the stored choices: as entered, or the start of the Hijri month (its end for an
/// old crescent).
DateNumbers approximate_date(const CrescentSettings& settings);

/// Whole lunation nearest to a date, counted from 2000 January 6.
double nearest_lunation(const DateNumbers& date);

/// Finds the conjunction of a run's choices: geocentric, or topocentric for the observer of its location.
Conjunction find_conjunction(Ephemeris& ephemeris, const CrescentRecords& run);

/// The dates to choose from: the conjunction's, one and two days after it, one and two days before it.
std::array<DateNumbers, 5> candidate_dates(const Conjunction& conjunction);

} // namespace halvane
