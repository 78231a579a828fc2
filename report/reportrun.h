// SPDX-License-Identifier: MIT
#pragma once

#include "base/machinetime.h"
#include "base/progress.h"
#include "report/run.h"
#include "stored/date.h"
#include "stored/loc.h"
#include "stored/pref.h"

#include <functional>

namespace halvane {

/// The date of a machine's clock.
DateNumbers date_of(const MachineTime& time);

/// First and last day of a run: those of the stored record, or today for both when it follows the system's
/// date.
struct CalculationPeriod {
    DateNumbers start;
    DateNumbers end;
};
CalculationPeriod calculation_period(const CalculationDate& date, const MachineTime& today);

/// What the heads of the reports print besides the settings.
struct ReportPeriod {
    bool one_day = false;
    DateNumbers start; ///< as stored, or today
    DateNumbers end;
    double delta_t = 0; ///< at the middle of the days computed                                  [s]
};

/// The days of a run: 0 h of its first and last civil date                                      [d]
struct RunDays {
    double first = 0;
    double last = 0;
};

/// The days of the stored dates, and what the head prints of them.
RunDays days_of(const DateNumbers& start, const DateNumbers& end);
double mean_delta_t(const RunDays& days); ///< of the middle of the run                          [d]
ReportPeriod report_period(const CalculationDate& date, const RunDays& days);

/// What a run over days is made with, as stored when it starts; the system's date is taken then.
struct DaySettings {
    Preferences preferences;
    Location location;
    CalculationDate date; ///< `start` and `end` are the days of the run
};

/// In     today  the machine's date, for a run that follows it
/// Reads `pref.vsk`, `date.vsk`, `loc.vsk`.
DaySettings stored_day_settings(const MachineTime& today);

/// Does `work` for each day of a run, from the first to the last or until it answers other than done.
/// In     work  takes 0 h of the day as a Julian day [d]
RunOutcome each_day(const RunDays& days, Progress& progress, YieldPlace place,
                    const std::function<RunOutcome(double jd)>& work);

/// Name, longitude, latitude, elevation and zone of a place.
void add_place(Facts& facts, const Location& location);
/// The first and the last day of a run, and its Delta T.
void add_period(Facts& facts, const ReportPeriod& period);

} // namespace halvane
