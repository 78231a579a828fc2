// SPDX-License-Identifier: MIT
#pragma once

#include "events/riseset.h"

namespace halvane {

/// The rise and set of the Sun and the Moon of a local day, hours on the local clock or the reason why there
/// are none; "----" until first taken.
struct DayEvents {
    TaggedTime sunrise = NoEvent::none;
    TaggedTime sunset = NoEvent::none;
    TaggedTime moonrise = NoEvent::none;
    TaggedTime moonset = NoEvent::none;
};

/// The events of a day. On a day that a body stays above or below the horizon its set tells so and its rise
/// keeps what `events` held.
/// In     start   the local day's 0 h, as find_rise_set takes it
/// Out    events  of the Sun, of the Moon; the other two stay
/// Error  as find_rise_set.
void take_sun_events(Ephemeris& ephemeris, const Instant& start, const Observer& observer,
                     const Horizon& horizon, DayEvents& events);
void take_moon_events(Ephemeris& ephemeris, const Instant& start, const Observer& observer,
                      const Horizon& horizon, DayEvents& events);

} // namespace halvane
