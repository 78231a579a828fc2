// SPDX-License-Identifier: MIT
#pragma once

#include "calendar/moddateconv.h"
#include "calendar/taggedtime.h"
#include "ephemeris/instant.h"
#include "ephemeris/observer.h"
#include "events/riseset.h"
#include "halvane/events.h"
#include "halvane/values.h"
#include "stored/loc.h"
#include "zones/timezone.h"

#include <optional>

namespace halvane::v1 {

/// A zone's clock.
struct Clock::Rules {
    TimeZone zone;
};

// The engine's values from the interface's, checked.
// Error  raise Error (bad_argument) for what is out of range.
halvane::Instant engine_instant(const Instant& instant);
/// The last observer of each thread is kept: calls mostly follow each other for one. The reference holds
/// until the thread's next call.
const halvane::Observer& engine_observer(const Observer& observer);
halvane::Horizon engine_horizon(const Horizon& horizon, const Observer& observer);
double checked_julian_day(const Date& date);

/// A place as the records hold it, on a clock that is so many hours ahead.
Location location_at(const Observer& observer, double hours_ahead, const Horizon& horizon = {});
/// The rules of a clock; nothing for a fixed one.
std::optional<TimeZone> zone_of(const Clock& clock);

// The interface's values from the engine's.
ClockTime clock_time(const TaggedTime& time);
Missing missing_of(NoEvent reason);
HijriDate hijri_value(const halvane::HijriDate& date);

} // namespace halvane::v1
