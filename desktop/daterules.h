// SPDX-License-Identifier: MIT
#pragma once

#include "stored/date.h"

#include <string>

namespace halvane {

/// Texts of the year box and of the month and day lists of one date.
struct DateBoxes {
    std::string year;
    std::string month;
    std::string day;

    bool operator==(const DateBoxes&) const = default;
};

enum class DateChoice { system_date, one_day, period };

/// What stands on the date panel.
struct DatePanel {
    DateChoice choice = DateChoice::system_date;
    DateBoxes from;
    DateBoxes to;
    DateBoxes one;
};

/// What the panel shows of a stored record: a period before one day before the system's date.
DatePanel date_panel_of(const CalculationDate& record);

/// The record of the panel: start and end are the one day, or else the boxes of the period.
CalculationDate calculation_date_of(const DatePanel& panel);

/// Whether a period ends before it starts, by the platform's calendar. Other records never do.
bool ends_before_start(const CalculationDate& record);

} // namespace halvane
