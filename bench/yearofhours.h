// SPDX-License-Identifier: MIT
#pragma once

#include "stored/coor.h"

namespace halvane::bench {

/// The choices of a topocentric table of 2026, hour by hour. Object 0 is the Sun, 1 the Moon.
inline EphemerisSettings year_of_hours(int object) {
    EphemerisSettings settings;
    settings.object = object;
    settings.geocentric = false;
    settings.end_month = 12;
    settings.end_day = 31;
    settings.end_hour = 23;
    settings.unit = 2;
    return settings;
}

} // namespace halvane::bench
