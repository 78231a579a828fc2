// SPDX-License-Identifier: MIT
#include "prayer/moonrun.h"

#include "base/machineclock.h"
#include "prayer/moonreport.h"
#include "report/head.h"
#include "report/reportrun.h"
#include "stored/programfolder.h"

namespace halvane {

RunOutcome write_moon_report(const TheoryPointer& theory, Progress& progress) {
    Ephemeris ephemeris(theory);
    const Preferences preferences = read_pref();
    const CalculationDate date = read_date();
    const Location location = read_loc();
    const CalculationPeriod period = calculation_period(date);
    const RunDays days = days_of(period.start, period.end);

    Report report(program_path("mresults.out"));
    write_moon_head(report, preferences, location, report_period(date, days));
    RunOutcome outcome = RunOutcome::done;
    int rows = 0;
    for (double jd = days.first; jd <= days.last && outcome == RunOutcome::done; jd += 1) {
        tell_progress(progress, days, jd);
        const int summer_hours = summer_hours_of(preferences, jd);
        const MoonTimes times = moon_day(ephemeris, preferences, location, jd, summer_hours);
        write_moon_row(report, precision_of(preferences), summer_hours == 1, row_date(jd), times, ++rows);
        if (!progress.yield())
            outcome = RunOutcome::cancelled;
    }
    write_moon_closing(report);
    report.commit();
    return outcome;
}

} // namespace halvane
