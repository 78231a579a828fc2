// SPDX-License-Identifier: MIT
#pragma once

#include "halvane/events.h"

namespace halvane::HALVANE_INLINE v1 {

/// Direction of the Kaaba: the initial bearing of the great circle, from true north through east, 0 to 360
/// [deg]
/// In     latitude, longitude  north and east positive                                         [deg]
/// Error  raises Error (no_value) at the Kaaba itself.
HALVANE_EXPORT double qiblah_direction(double latitude, double longitude);

/// The moments of a date at which the Sun stands in a direction.
struct SunInDirection {
    ClockTime first;
    ClockTime second;
    bool first_below_horizon = false; ///< the Sun stands there unseen
    bool second_below_horizon = false;
};

/// When the Sun, or the shadow that it casts, lies in a direction on a civil date of a clock.
/// In     azimuth  from true north through east, 0 to 360                                      [deg]
///        shadow   whether the shadow and not the Sun is meant
/// Accuracy  azimuth of the Sun within 0.05 deg of the target unless it passes close to the zenith.
HALVANE_EXPORT SunInDirection sun_in_direction(const Engine& engine, const Date& date,
                                               const Observer& observer, const Clock& clock, double azimuth,
                                               bool shadow = false, const Horizon& horizon = {});

} // namespace halvane::HALVANE_INLINEv1
