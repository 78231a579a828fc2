// SPDX-License-Identifier: MIT
#pragma once

#include "ephemeris/ephemeris.h"
#include "ephemeris/moon.h"
#include "ephemeris/sun.h"
#include "halvane/sky.h"

namespace halvane::v1 {

// The interface's values of the engine's places, with altitude and azimuth.
// In     place  with its topocentric members
SeenSun seen_value(Ephemeris& ephemeris, const halvane::Instant& instant, const halvane::Observer& observer,
                   const halvane::SunPlace& sun);
SeenMoon seen_value(Ephemeris& ephemeris, const halvane::Instant& instant, const halvane::Observer& observer,
                    const halvane::MoonPlace& moon);

} // namespace halvane::v1
