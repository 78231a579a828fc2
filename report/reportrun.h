// SPDX-License-Identifier: MIT
#pragma once

#include "base/progress.h"
#include "stored/date.h"

#include <string>

namespace halvane {

/// First and last day of a run: those of the stored record, or today for both when it follows the system's
/// date.
struct CalculationPeriod {
    DateNumbers start;
    DateNumbers end;
};
CalculationPeriod calculation_period(const CalculationDate& date);

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

/// Tells how far a run over `days` has come with day `jd`.
void tell_progress(Progress& progress, const RunDays& days, double jd);

/// The civil date of a day's 0 h as the rows print it.
std::string row_date(double jd);

} // namespace halvane
