// SPDX-License-Identifier: MIT
#include "tables/ephemeristable.h"

#include "base/failure.h"
#include "base/numberformat.h"
#include "calendar/civildate.h"
#include "calendar/modjul.h"
#include "calendar/yearlimits.h"
#include "report/reportrun.h"
#include "settings/enginesettings.h"
#include "stored/loc.h"
#include "tables/ephemerisreport.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace halvane {

const TwinMessage end_before_start{
    {"Date Error", "خطأ"},
    {"The end date must be AFTER the beginning date!", "تاريخ النهاية يجب أن يكون بعد التاريخ البداية"}};

namespace {

constexpr double beyond_the_end = 1e-8; // [d]

bool is_end_of_group(int rows) {
    constexpr int rows_of_a_group = 4;
    return rows % rows_of_a_group == 0;
}

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

class EphemerisRun final : public RunOf<EphemerisLine> {
public:
    EphemerisRun(TheoryPointer theory, const EphemerisSettings& settings, Location location)
        : theory_(std::move(theory)), settings_(settings), location_(std::move(location)),
          span_(table_span(settings_, location_.zone)) {}

    const char* task() const override { return "ephemeris"; }
    const char* report_name() const override { return "ephemeris.out"; }

    RunOutcome each_row(const TakeRow& take, Progress& progress) const override {
        return about_place(location_.name, [&] { return each_step(take, progress); });
    }

    std::span<const ColumnOf<EphemerisLine>> columns() const override {
        return ephemeris_columns(body_of(settings_));
    }

    Facts facts() const override {
        Facts facts;
        add_place(facts, location_);
        add_fact(facts, "body", std::string(body_of(settings_) == TableBody::sun ? "Sun" : "Moon"));
        add_fact(facts, "geocentric", settings_.geocentric);
        add_fact(facts, "time_reference", std::string(settings_.local_ut1 ? "UT1" : "TDT"));
        add_fact(facts, "summer_time", settings_.summer_time == 1);
        return facts;
    }

private:
    RunOutcome each_step(const TakeRow& take, Progress& progress) const {
        Ephemeris ephemeris(theory_);
        const TableBody body = body_of(settings_);
        const Observer observer = observer_of(location_);
        const TimeScale scale = settings_.local_ut1 ? TimeScale::ut1 : TimeScale::dynamical;
        const double clock_ahead = (location_.zone + summer_hours(settings_)) / 24;
        const double steps = (span_.end - span_.start) / span_.step;
        // Where a far start cannot be told from the next row, the count ends the table.
        const double last_row = steps + 0.5;
        double jd = span_.start;
        for (double n = 0; n <= last_row && jd <= span_.end + beyond_the_end;
             jd = span_.start + ++n * span_.step) {
            const double percent = span_.start == span_.end ? 100 : std::min((n + 1) / steps * 100, 100.0);
            const RunOutcome outcome = do_row(progress, percent, YieldPlace::after_row, [&] {
                about_day(jd + clock_ahead, [&] {
                    take({jd + clock_ahead,
                          ephemeris_row(ephemeris, {jd, scale}, observer, body, settings_.geocentric)});
                });
                return RunOutcome::done;
            });
            if (outcome != RunOutcome::done)
                return outcome;
        }
        return RunOutcome::done;
    }

    void write_head(Report& report) const override { write_ephemeris_head(report, settings_, location_); }
    void write_row(Report& report, const EphemerisLine& line, int number) const override {
        // The line between two groups is written with the second: a cancelled table ends without one.
        if (number > 1 && is_end_of_group(number - 1))
            report.end_line();
        write_ephemeris_row(report, body_of(settings_), line);
    }
    void write_closing(Report& report, RunOutcome outcome, int rows) const override {
        if (outcome == RunOutcome::done && is_end_of_group(rows))
            report.end_line();
        write_ephemeris_closing(report);
    }

    TheoryPointer theory_;
    EphemerisSettings settings_;
    Location location_;
    TableSpan span_;
};

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

RunPointer ephemeris_run(const TheoryPointer& theory, const EphemerisSettings& settings) {
    if (refused_table(settings))
        return nullptr;
    const Location& location = read_loc();
    const TableSpan span = table_span(settings, location.zone);
    if (span.end < span.start)
        return nullptr;
    return std::make_shared<EphemerisRun>(theory, settings, location);
}

} // namespace halvane
