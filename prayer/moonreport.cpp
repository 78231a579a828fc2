// SPDX-License-Identifier: MIT
#include "prayer/moonreport.h"

#include "base/numberformat.h"
#include "prayer/prayerreport.h"
#include "report/columns.h"
#include "report/head.h"

namespace halvane {
namespace {

/// Columns of the report.
struct Places {
    int rise, transit, set;
};

constexpr Places minutes_places{18, 35, 54};
constexpr Places seconds_places{17, 37, 55};

constexpr ColumnOf<MoonRow> columns[] = {
    date_column<MoonRow>,
    summer_column<MoonRow>,
    {{"moonrise", {"Moon Rise", "شروق القمر"}, "", ValueType::clock},
     [](const MoonRow& row) -> Value { return ClockValue{row.times.rise}; }},
    {{"transit", {"Moon Transit", "عبور القمر"}, "", ValueType::clock},
     [](const MoonRow& row) -> Value { return ClockValue{row.times.transit}; }},
    {{"moonset", {"Moon Set", "غروب القمر"}, "", ValueType::clock},
     [](const MoonRow& row) -> Value { return ClockValue{row.times.set}; }},
};

void write_title_row(Report& report, int precision) {
    report.spc(2).text("Date");
    if (precision == 0)
        report.tab(17).text("Moon Rise").tab(35).text("Moon Transit").tab(55).line("Moon Set");
    else
        report.spc(10).text("Moon Rise").spc(6).text("Moon Transit").spc(8).line("Moon Set");
    report.end_line();
}

} // namespace

std::span<const ColumnOf<MoonRow>> moon_columns() {
    return columns;
}

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

void write_moon_row(Report& report, int precision, const MoonRow& row, int number) {
    const Places& places = precision == 0 ? seconds_places : minutes_places;
    report.text(row.summer ? "*" : "").text(date_text(row.date));
    report.tab(places.rise).text(text_of(row.times.rise, precision));
    report.tab(places.transit).text(text_of(row.times.transit, precision));
    report.tab(places.set).text(text_of(row.times.set, precision));
    end_row(report, number);
}

void write_moon_closing(Report& report) {
    report.rule(prayer_rule).end_line();
    write_remarks_title(report);
    write_date_remarks(report);
}

} // namespace halvane
