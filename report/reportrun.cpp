// SPDX-License-Identifier: MIT
#include "report/reportrun.h"

#include "base/machineclock.h"
#include "calendar/civildate.h"
#include "calendar/moddeltat.h"
#include "calendar/modjul.h"
#include "report/head.h"

namespace halvane {

CalculationPeriod calculation_period(const CalculationDate& date) {
    if (!date.system_date)
        return {date.start, date.end};
    const MachineTime now = machine_time();
    const DateNumbers today{static_cast<double>(now.year), static_cast<double>(now.month),
                            static_cast<double>(now.day)};
    return {today, today};
}

RunDays days_of(const DateNumbers& start, const DateNumbers& end) {
    RunDays days;
    modjul(start.year, start.month, start.day, 0, days.first);
    modjul(end.year, end.month, end.day, 0, days.last);
    return days;
}

double mean_delta_t(const RunDays& days) {
    double delta_t = 0;
    moddeltat((days.first + days.last) / 2, delta_t);
    return delta_t;
}

ReportPeriod report_period(const CalculationDate& date, const RunDays& days) {
    const CalculationPeriod period = calculation_period(date);
    return {date.one_day, period.start, period.end, mean_delta_t(days) * 86400};
}

void tell_progress(Progress& progress, const RunDays& days, double jd) {
    progress.percent(days.first == days.last ? 100 : (jd - days.first) / (days.last - days.first) * 100);
}

std::string row_date(double jd) {
    return date_text(civil_date(jd));
}

} // namespace halvane
