// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// A calendar date as the user gave it; no field is checked against the calendar.
struct DateNumbers {
    double year = 0;
    double month = 0;
    double day = 0;

    bool operator==(const DateNumbers&) const = default;
};

} // namespace halvane
