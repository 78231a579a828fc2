// SPDX-License-Identifier: MIT
#pragma once

#include "ephemeris/ephemeris.h"
#include "timetable/skytime.h"
#include "timetable/timetable.h"

#include <memory>

namespace halvane {

/// The clock of a place on a date, as it is at noon.
struct DayClock {
    double zone = 0;      ///< standard time from Universal Time                                    [h]
    int summer_hours = 0; ///< on top of it

    double ahead() const { return zone + summer_hours; }
};

DayClock clock_on(const TimetablePlace& place, double jd);

/// Gives the times of dates one after the other; neighbouring dates share what they can.
class SkyDays {
public:
    SkyDays() = default;
    SkyDays(const SkyDays&) = delete;
    SkyDays& operator=(const SkyDays&) = delete;
    virtual ~SkyDays() = default;

    /// The times of a date in hours of its clock (clock_on).
    /// In     jd  0 h of the civil date                                                            [d]
    /// Error  raises RunTimeFailure.
    virtual SkyDay day(double jd) = 0;
    /// Whether they are whole minutes by their nature.
    virtual bool whole_minutes() const { return false; }
};

/// The times as the prayer report has them, by the profile's preferences or by the year method.
std::unique_ptr<SkyDays> report_days(Ephemeris& ephemeris, const TimetableSettings& settings);
/// The times by a profile's own rules, night by night.
std::unique_ptr<SkyDays> rule_days(Ephemeris& ephemeris, const TimetableSettings& settings);

/// The one of the two that a profile wants. Both arguments must outlive it.
std::unique_ptr<SkyDays> sky_days(Ephemeris& ephemeris, const TimetableSettings& settings);

} // namespace halvane
