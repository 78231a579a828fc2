// SPDX-License-Identifier: MIT
#pragma once

#include "base/datenumbers.h"
#include "base/twintext.h"
#include "stored/loc.h"
#include "zones/timezone.h"

#include <variant>

namespace halvane {

/// The days of a year on which the clock is an hour ahead of a location's zone, both ends inside, as the
/// preferences keep them; `last` stands before `first` where the span runs over the new year.
struct SummerSpan {
    DateNumbers first;
    DateNumbers last;

    bool operator==(const SummerSpan&) const = default;
};

/// A year without summer time.
struct NoSummerTime {};

/// The summer time of a year: the span, none, or why the preferences cannot keep it.
using SummerTime = std::variant<SummerSpan, NoSummerTime, Refusal>;

/// The summer time of a civil year by the rules of a zone. A day counts as its noon does: clocks are changed
/// in the night. What the change is called does not count, only that the clock is ahead of `standard_hours`;
/// so Ireland's winter, which its law calls the change, is winter here. In     standard_hours  the location's
/// zone from Universal Time, east positive                [h]
///        year            Gregorian
/// Refused: clocks that are neither at the zone nor one hour ahead of it (half an hour on Lord Howe Island,
/// an hour back), more than one span (a Ramadan without summer time), an hour ahead all year.
SummerTime summer_time_of(const TimeZone& zone, double standard_hours, int year);

/// The hours from Universal Time of a zone's clock in a year when it is least ahead: those that
/// summer_time_of takes as the standard ones.
double least_hours_of(const TimeZone& zone, int year);

/// The summer time of a year at a location, by the zone that `zones.csv` names for it. Reads `zones.csv`.
/// Refused besides: a location without a zone there.
/// Error  raises RunTimeFailure for a missing or damaged `zones.csv`, and where the system does not know the
/// zone.
SummerTime summer_time_at(const Location& location, int year);

} // namespace halvane
