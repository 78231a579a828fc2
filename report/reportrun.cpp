// SPDX-License-Identifier: MIT
#include "report/reportrun.h"

#include "calendar/moddeltat.h"
#include "calendar/modjul.h"

namespace halvane {

DateNumbers date_of(const MachineTime& time) {
    return {static_cast<double>(time.year), static_cast<double>(time.month), static_cast<double>(time.day)};
}

CalculationPeriod calculation_period(const CalculationDate& date, const MachineTime& today) {
    if (!date.system_date)
        return {date.start, date.end};
    return {date_of(today), date_of(today)};
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
    return {date.one_day, date.start, date.end, mean_delta_t(days) * 86400};
}

DaySettings stored_day_settings(const MachineTime& today) {
    DaySettings settings{read_pref(), {}, read_date()};
    settings.location = read_loc();
    const CalculationPeriod period = calculation_period(settings.date, today);
    settings.date.start = period.start;
    settings.date.end = period.end;
    return settings;
}

RunOutcome each_day(const RunDays& days, Progress& progress, YieldPlace place,
                    const std::function<RunOutcome(double jd)>& work) {
    const double span = days.last - days.first;
    for (double jd = days.first; jd <= days.last; jd += 1) {
        const double percent = span == 0 ? 100 : (jd - days.first) / span * 100;
        const RunOutcome outcome = do_row(progress, percent, place, [&] { return work(jd); });
        if (outcome != RunOutcome::done)
            return outcome;
    }
    return RunOutcome::done;
}

void add_place(Facts& facts, const Location& location) {
    add_fact(facts, "place", location.name);
    add_fact(facts, "longitude", longitude_of(location));
    add_fact(facts, "latitude", latitude_of(location));
    add_fact(facts, "elevation", location.elevation);
    add_fact(facts, "zone", location.zone);
}

void add_period(Facts& facts, const ReportPeriod& period) {
    add_fact(facts, "first_date", period.start);
    add_fact(facts, "last_date", period.end);
    add_fact(facts, "delta_t", period.delta_t);
}

} // namespace halvane
