// SPDX-License-Identifier: MIT
#include "prayer/moonreport.h"

#include "base/numberformat.h"
#include "report/head.h"

namespace halvane {
namespace {

struct Columns {
    int rise, transit, set;
};

constexpr Columns minutes_columns{18, 35, 54};
constexpr Columns seconds_columns{17, 37, 55};

void write_title_row(Report& report, int precision) {
    report.spc(2).text("Date");
    if (precision == 0)
        report.tab(17).text("Moon Rise").tab(35).text("Moon Transit").tab(55).line("Moon Set");
    else
        report.spc(10).text("Moon Rise").spc(6).text("Moon Transit").spc(8).line("Moon Set");
    report.end_line();
}

} // namespace

void write_moon_head(Report& report, const Preferences& preferences, const Location& location,
                     const ReportPeriod& period) {
    write_title(report, 26);
    write_days(report, period.one_day, "Moon Times", period.start, period.end, " CE", " CE");
    write_location(report, location);
    write_summer_time(report, preferences);
    write_height_setting(report, preferences);
    write_refraction(report, location);
    write_city_setting(report, location);
    write_delta_t(report, format_number(period.delta_t, "00.0"));
    report.rule(prayer_rule).end_line();
    write_title_row(report, precision_of(preferences));
}

void write_moon_row(Report& report, int precision, bool summer, const std::string& date,
                    const MoonTimes& times, int number) {
    const Columns& columns = precision == 0 ? seconds_columns : minutes_columns;
    report.text(summer ? "*" : "").text(date);
    report.tab(columns.rise)
        .text(text_of(times.rise, precision))
        .tab(columns.transit)
        .text(text_of(times.transit, precision));
    report.tab(columns.set).text(text_of(times.set, precision));
    end_row(report, number);
}

void write_moon_closing(Report& report) {
    report.rule(prayer_rule).end_line();
    write_remarks_title(report);
    write_date_remarks(report);
}

} // namespace halvane
