// SPDX-License-Identifier: MIT
#pragma once

#include "crescent/criteriacatalogue.h"

#include <optional>

namespace halvane {

/// The longitude at which the Sun sets at an instant, by its place then; nothing where it does not set at
/// that latitude. In     universal  Julian day, UT1 [d]
///        latitude   north positive                                                             [deg]
/// Returns -180 to 180, east positive                                                           [deg]
std::optional<double> longitude_of_sunset(Ephemeris& ephemeris, double universal, double latitude);

/// Whether any place on Earth from 60 degrees north to 60 south meets one of the two criteria of Istanbul
/// 2016 at a sunset before 24 h Universal Time of a date. Judged at every degree of latitude where the Sun
/// sets at 24 h: at an earlier sunset the Moon is lower and nearer to the Sun. In     criterion
/// "istanbul-2016" or "istanbul-2016-geocentric"
///        day          0 h of the date                                                          [d]
///        conjunction  geocentric; Julian day, UT1                                              [d]
bool is_met_before_midnight(Ephemeris& ephemeris, const CataloguedCriterion& criterion, double day,
                            double conjunction);

} // namespace halvane
