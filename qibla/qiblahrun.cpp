// SPDX-License-Identifier: MIT
#include "qibla/qiblahrun.h"

#include "base/failure.h"
#include "base/machineclock.h"
#include "calendar/moddeltat.h"
#include "calendar/modsummer.h"
#include "qibla/direction.h"
#include "report/reportrun.h"
#include "settings/enginesettings.h"
#include "stored/programfolder.h"

namespace halvane {
namespace {

/// Copies: a saved change during the run does not reach it.
struct RunSettings {
    Preferences preferences = read_pref();
    Location location = read_loc();
    CalculationDate date = read_date();
};

QiblahSearch search_of(const RunSettings& settings, double azimuth, double delta_t) {
    const Location& location = settings.location;
    QiblahSearch search;
    search.observer = observer_of(location);
    search.zone = location.zone;
    search.azimuth = azimuth;
    search.delta_t = delta_t;
    search.altitude_limit =
        qiblah_altitude_limit(location.elevation, location.pressure, location.temperature);
    search.precision = precision_of(settings.preferences);
    return search;
}

RunOutcome write_rows(Ephemeris& ephemeris, Report& report, const RunSettings& settings,
                      const QiblahSearch& search, const RunDays& days, Progress& progress) {
    RunOutcome outcome = RunOutcome::done;
    int rows = 0;
    for (double jd = days.first; jd <= days.last && outcome == RunOutcome::done; jd += 1) {
        tell_progress(progress, days, jd);
        if (!progress.yield())
            outcome = RunOutcome::cancelled;
        const int summer_hours = summer_hours_of(settings.preferences, jd);
        write_qiblah_row(report, search.precision, summer_hours == 1, row_date(jd),
                         qiblah_day(ephemeris, search, jd, summer_hours), ++rows);
    }
    return outcome;
}

RunOutcome write_qiblah(Ephemeris& ephemeris, Report& report, const RunSettings& settings, float direction,
                        QiblahMark mark, Progress& progress) {
    const CalculationPeriod period = calculation_period(settings.date);
    const RunDays days = days_of(period.start, period.end);
    const QiblahSearch search =
        search_of(settings, target_azimuth(direction, mark == QiblahMark::shadow), mean_delta_t(days));

    write_qiblah_head(report, settings.preferences, settings.location, report_period(settings.date, days),
                      direction, mark);
    const RunOutcome outcome = write_rows(ephemeris, report, settings, search, days, progress);
    write_qiblah_closing(report);
    return outcome;
}

} // namespace

float stored_qiblah_direction() {
    const Location& location = read_loc();
    return about_place(location.name,
                       [&] { return qiblah_direction(longitude_of(location), latitude_of(location)); });
}

RunOutcome write_qiblah_report(const TheoryPointer& theory, Progress& progress, float direction,
                               QiblahMark mark) {
    Ephemeris ephemeris(theory);
    Report report(program_path("results.out"));
    const RunSettings settings;
    const RunOutcome outcome = about_place(settings.location.name, [&] {
        return write_qiblah(ephemeris, report, settings, direction, mark, progress);
    });
    report.commit();
    return outcome;
}

} // namespace halvane
