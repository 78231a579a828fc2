// SPDX-License-Identifier: MIT
#pragma once

#include "calendar/taggedtime.h"
#include "timetable/daytimes.h"

#include <optional>
#include <utility>

namespace halvane {

/// What made a time of a timetable.
enum class TimeSource {
    sky,      ///< the Sun: its depression, its transit, its rise or set, a shadow
    interval, ///< minutes after Maghreb
    // The rules of high latitudes:
    middle,
    seventh,
    angle,
    nearest_latitude,
    share,
    year
};

/// A time before it is brought to its minute, or why there is none.
struct SkyTime {
    std::optional<double> hours; ///< from 0 h of a date, on a clock that the holder names          [h]
    NoEvent missing = NoEvent::none;
    TimeSource source = TimeSource::sky;

    SkyTime() = default;
    SkyTime(const TaggedTime& time) { // NOLINT: a tagged time is one of the sky
        if (const double* found = hours_of(time))
            hours = *found;
        else
            missing = std::get<NoEvent>(time);
    }
    SkyTime(double given, TimeSource made_by) : hours(given), source(made_by) {}

    explicit operator bool() const { return hours.has_value(); }
    SkyTime after(double more) const {
        SkyTime moved = *this;
        if (moved.hours)
            *moved.hours += more;
        return moved;
    }
};

/// The times of a date.
struct SkyDay {
    OfSix<SkyTime> times;
    SkyTime aser_standard;
    SkyTime aser_hanafi;
    SkyTime next_fajer; ///< of the next date, in hours of this one
    SkyTime next_shuroq;
};

} // namespace halvane
