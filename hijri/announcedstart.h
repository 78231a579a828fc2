// SPDX-License-Identifier: MIT
#pragma once

#include "calendar/hijricalendar.h"

#include <string>

namespace halvane {

/// The first day of a month as somebody announced it.
struct AnnouncedStart {
    HijriMonthNumber month;
    double first_day = 0; ///< day number: Julian day of its noon, a whole number                   [d]
    std::string announced_by;
};

} // namespace halvane
