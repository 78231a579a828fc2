#pragma once

#include "calendar/moddeltat.h"
#include "ephemeris/interpolation.h"
#include "ephemeris/series.h"

namespace halvane {

/// What a result of one instant depends on: a kept one stands while the key is the same.
struct InstantKey {
    double jd = 0;
    int time_scale = 0; ///< `tdtinput`
    bool interpolated = false;
    unsigned generation = 0; ///< `series_generation`

    static InstantKey of(double jd) { return {jd, tdtinput, interpolating, series_generation()}; }
    bool operator==(const InstantKey&) const = default;
};

} // namespace halvane
