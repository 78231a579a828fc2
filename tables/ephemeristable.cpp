// SPDX-License-Identifier: MIT
#include "tables/ephemeristable.h"

#include "base/failure.h"
#include "base/numberformat.h"
#include "base/record.h"
#include "calendar/civildate.h"
#include "calendar/modjul.h"
#include "calendar/yearlimits.h"
#include "settings/enginesettings.h"
#include "stored/loc.h"
#include "stored/programfolder.h"
#include "tables/ephemerisreport.h"

#include <algorithm>
#include <cmath>

namespace halvane {

const TwinMessage end_before_start{
    {"Date Error", "خطأ"},
    {"The end date must be AFTER the beginning date!", "تاريخ النهاية يجب أن يكون بعد التاريخ البداية"}};

namespace {

constexpr double beyond_the_end = 1e-8; // [d]
constexpr int rows_of_a_group = 4;

double summer_hours(const EphemerisSettings& settings) {
    return settings.summer_time == 1 ? 1 : 0;
}

/// Julian day of a date; `hour` is without zone and summer hour.
double instant_of(double year, double month, double day, double hour, double minute, double second) {
    double jd = 0;
    modjul(year, month, day, hour + minute / 60 + second / 3600, jd);
    return require_finite(jd, {"a date of the table", "تاريخ في الجدول"});
}

double unit_days(int unit) {
    switch (unit) {
    case 0:
        return 1.0 / 86400;
    case 1:
        return 1.0 / 1440;
    case 2:
        return 0.0416666666666667;
    default:
        return 1;
    }
}

void tell_progress(Progress& progress, const TableSpan& span, double row) {
    const double percent =
        span.start == span.end ? 100 : (row + 1) / ((span.end - span.start) / span.step) * 100;
    progress.percent(std::min(percent, 100.0));
}

RunOutcome write_rows(Ephemeris& ephemeris, Report& report, const EphemerisSettings& settings,
                      const TableSpan& span, const Location& location, Progress& progress) {
    const TableBody body = body_of(settings);
    const Observer observer = observer_of(location);
    const TimeScale scale = settings.local_ut1 ? TimeScale::ut1 : TimeScale::dynamical;
    const double clock_ahead = (location.zone + summer_hours(settings)) / 24;
    // Where a far start cannot be told from the next row, the count ends the table.
    const double last_row = (span.end - span.start) / span.step + 0.5;
    int in_group = 0;
    double jd = span.start;
    for (double n = 0; n <= last_row && jd <= span.end + beyond_the_end; jd = span.start + ++n * span.step) {
        tell_progress(progress, span, n);
        about_day(jd + clock_ahead, [&] {
            write_ephemeris_row(report, body, jd + clock_ahead,
                                ephemeris_row(ephemeris, {jd, scale}, observer, body, settings.geocentric));
        });
        if (!progress.yield())
            return RunOutcome::cancelled;
        if (++in_group == rows_of_a_group) {
            report.end_line();
            in_group = 0;
        }
    }
    return RunOutcome::done;
}

} // namespace

TableSpan table_span(const EphemerisSettings& settings, double zone) {
    const EphemerisSettings& s = settings;
    const double start_hour = s.start_hour - zone - summer_hours(s);
    const double end_hour = s.end_hour - zone - summer_hours(s);
    TableSpan span;
    span.start =
        instant_of(s.start_year, s.start_month, s.start_day, start_hour, s.start_minute, s.start_second);
    span.end = instant_of(s.end_year, s.end_month, s.end_day, end_hour, s.end_minute, s.end_second);
    span.step = std::fabs(std::trunc(s.interval)) * unit_days(s.unit);
    if (span.step == 0)
        span.step = 1;
    return span;
}

double table_rows(const TableSpan& span) {
    return std::floor((span.end + beyond_the_end - span.start) / span.step) + 1;
}

std::optional<TableRefusal> refused_table(const EphemerisSettings& settings) {
    if (const auto refused = refused_year(settings.start_year, theory_years))
        return TableRefusal{TableInput::start_year, *refused};
    if (const auto refused = refused_year(settings.end_year, theory_years))
        return TableRefusal{TableInput::end_year, *refused};
    const double rows = table_rows(table_span(settings, read_loc().zone));
    if (rows <= most_table_rows)
        return std::nullopt;
    const std::string found = plain_number(rows);
    const std::string most = plain_number(most_table_rows);
    return TableRefusal{TableInput::interval,
                        {{"Table Error", "خطأ"},
                         {"The table would have " + found + " rows, and at most " + most +
                              " are written: please choose a longer interval or a shorter time.",
                          "سيكون في الجدول " + found + " سطر، و لا يكتب أكثر من " + most +
                              "، يرجى اختيار فاصل زمني أطول أو مدة أقصر."}}};
}

RunOutcome write_ephemeris_report(const TheoryPointer& theory, const EphemerisSettings& settings,
                                  Progress& progress) {
    if (refused_table(settings))
        return RunOutcome::refused;
    // A copy: the panels that a yield lets run may store another place.
    const Location location = read_loc(); // NOLINT(performance-unnecessary-copy-initialization)
    const TableSpan span = table_span(settings, location.zone);
    if (span.end < span.start)
        return RunOutcome::refused;
    Ephemeris ephemeris(theory);
    Report report(program_path("ephemeris.out"));
    write_ephemeris_head(report, settings, location);
    const RunOutcome outcome = about_place(
        location.name, [&] { return write_rows(ephemeris, report, settings, span, location, progress); });
    write_ephemeris_closing(report);
    report.commit();
    return outcome;
}

} // namespace halvane
