// SPDX-License-Identifier: MIT
#pragma once

#include "base/datenumbers.h"
#include "timetable/timetable.h"

#include <string>

namespace halvane {

/// A moment on a clock, to the second.
struct LocalMoment {
    double jd = 0;   ///< 0 h of its civil date                                                    [d]
    int seconds = 0; ///< of that day                                                            [s]
    int offset = 0;  ///< of the clock from Universal Time                                       [s]
};

/// In     universal  Julian day, UT1                                                             [d]
LocalMoment local_moment(const TimetablePlace& place, double universal);
/// The same on the clock of Universal Time.
LocalMoment universal_moment(double universal);

/// "17:24:31"
std::string clock_of(const LocalMoment& moment);
/// "17:24", rounded to the minute; 23:59:30 and later is "24:00"
std::string minute_of(const LocalMoment& moment);
/// "2026-02-18T17:24:31+02:00"; in Universal Time where the offset has seconds, which the form has not.
std::string instant_of(const LocalMoment& moment);

} // namespace halvane
