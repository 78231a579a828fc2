// SPDX-License-Identifier: MIT
#include "events/dayevents.h"

namespace halvane {
namespace {

void take(const RiseSet& found, TaggedTime& rise, TaggedTime& set) {
    const bool lasts_all_day = is(found.rise, NoEvent::up) || is(found.rise, NoEvent::down);
    if (!lasts_all_day)
        rise = found.rise;
    set = found.set;
}

} // namespace

void take_sun_events(Ephemeris& ephemeris, const Instant& start, const Observer& observer,
                     const Horizon& horizon, DayEvents& events) {
    take(find_rise_set(ephemeris, Target::sun, start, observer, horizon), events.sunrise, events.sunset);
}

void take_moon_events(Ephemeris& ephemeris, const Instant& start, const Observer& observer,
                      const Horizon& horizon, DayEvents& events) {
    take(find_rise_set(ephemeris, Target::moon, start, observer, horizon), events.moonrise, events.moonset);
}

} // namespace halvane
