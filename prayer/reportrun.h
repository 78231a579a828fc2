#pragma once

#include "app/report/progress.h"
#include "prayer/prayerreport.h"

namespace halvane {

/// The days of a run: 0 h of its first and last civil date                                      [d]
struct RunDays {
    double first = 0;
    double last = 0;
};

/// The days of the stored dates, and what the head prints of them.
RunDays days_of(const DateNumbers& start, const DateNumbers& end);
ReportPeriod report_period(const CalculationDate& date, const RunDays& days);

/// Tells how far a run over `days` has come with day `jd`.
void tell_progress(Progress& progress, const RunDays& days, double jd);

/// The civil date of a day's 0 h as the rows print it.
std::string row_date(double jd);

} // namespace halvane
