// SPDX-License-Identifier: MIT
#include "qibla/qiblareport.h"

#include "base/numberformat.h"
#include "calendar/modctim.h"
#include "calendar/taggedtime.h"
#include "report/columns.h"
#include "report/head.h"

namespace halvane {
namespace {

constexpr int qiblah_rule = 84;

void write_direction(Report& report, float direction, QiblahMark mark) {
    report.text("-").spc(1).text("Qiblah Direction is:").spc(2).item(direction).line("° From True North");
    report.text("-").spc(1).text("Qiblah Time you Chose is The Time At Which the ");
    report.text(mark == QiblahMark::sun ? "SUN" : "SUN'S SHADOW").line(" is at Qiblah Direction");
}

void write_titles(Report& report) {
    report.rule(qiblah_rule).end_line();
    report.spc(2).text("Date").spc(11).text("Qiblah Time").spc(23).line("Qiblah Time");
    report.spc(18).text("First Time").spc(23).line("Second Time");
    report.end_line();
    report.rule(qiblah_rule).end_line();
}

std::string time_text(const std::optional<QiblahMoment>& moment, int precision) {
    return moment ? modctim(precision, moment->hours) : text_of(NoEvent::none);
}

const char* note_of(const std::optional<QiblahMoment>& moment) {
    return moment && moment->below_horizon ? "Below Horizon" : "";
}

Value clock_value(const std::optional<QiblahMoment>& moment) {
    return moment ? Value(ClockValue{moment->hours}) : Value();
}

Value below_value(const std::optional<QiblahMoment>& moment) {
    return moment ? Value(moment->below_horizon) : Value();
}

constexpr ColumnOf<QiblahRow> columns[] = {
    date_column<QiblahRow>,
    summer_column<QiblahRow>,
    {{"first_time", {"First Time", "الوقت الأول"}, "", ValueType::clock},
     [](const QiblahRow& row) { return clock_value(row.day.first); }},
    {{"first_below_horizon", {"Below Horizon", "تحت الأفق"}, "", ValueType::flag},
     [](const QiblahRow& row) { return below_value(row.day.first); }},
    {{"second_time", {"Second Time", "الوقت الثاني"}, "", ValueType::clock},
     [](const QiblahRow& row) { return clock_value(row.day.second); }},
    {{"second_below_horizon", {"Below Horizon", "تحت الأفق"}, "", ValueType::flag},
     [](const QiblahRow& row) { return below_value(row.day.second); }},
};

} // namespace

std::span<const ColumnOf<QiblahRow>> qiblah_columns() {
    return columns;
}

void write_qiblah_head(Report& report, const Preferences& preferences, const Location& location,
                       const ReportPeriod& period, float direction, QiblahMark mark) {
    write_title(report, 28);
    write_direction(report, direction, mark);
    write_days(report, period.one_day, "Qiblah Direction", period.start, period.end, " CE", "");
    write_location(report, location, false);
    write_summer_time(report, preferences);
    write_delta_t(report, format_number(period.delta_t, "00.0"));
    write_titles(report);
}

void write_qiblah_row(Report& report, int precision, const QiblahRow& row, int number) {
    if (number % 5 == 0)
        report.end_line();
    report.text(row.summer ? "*" : "").text(date_text(row.date));
    report.tab(20).text(time_text(row.day.first, precision)).tab(30).text(note_of(row.day.first));
    report.tab(55)
        .text(time_text(row.day.second, precision))
        .tab(70)
        .text(note_of(row.day.second))
        .end_line();
}

void write_qiblah_closing(Report& report) {
    report.rule(qiblah_rule).end_line();
    write_remarks_title(report);
    write_date_remarks(report);
    report.text("-").spc(1).line(
        "'----' Means that the Sun / Sun's Shadow does not reach the Qiblah Direction on that day.");
    report.text("-").spc(1).line(
        "Kindly notice that at certain locations and on certain days, the Sun / Sun's Shadow reaches");
    report.spc(2).line("Qiblah direction twice on the same day!");
}

} // namespace halvane
