// SPDX-License-Identifier: MIT
#pragma once

#include "crescent/circumstances.h"
#include "report/column.h"

#include <span>

namespace halvane {

/// The places that a calculation was asked for: geocentric or topocentric                        [deg]
struct ChosenPlaces {
    double moon_right_ascension, moon_declination;
    double sun_right_ascension, sun_declination;
    double moon_longitude, moon_latitude;
    double sun_longitude, sun_latitude;
};
ChosenPlaces chosen_places(const Circumstances& circumstances);

/// What the report tells of a crescent, as one row.
std::span<const ColumnOf<Circumstances>> crescent_columns();

} // namespace halvane
