// SPDX-License-Identifier: MIT
#include "report/head.h"

#include "base/numberformat.h"
#include "base/record.h"

namespace halvane {
namespace {

void write_angle(Report& report, const std::string& degrees, double minutes, double seconds) {
    report.text(degrees).text(":").text(format_number(minutes, "##00")).text(":");
    report.text(format_number(seconds, "###00.0"));
}

std::string day_and_month(double day, double month) {
    return format_number(day, "##00") + "/" + format_number(month, "##00");
}

} // namespace

void write_head_lines(Report& report, int column) {
    report.tab(column).line("By the Name of Allah");
    report.tab(column - 7).line("Tarsine Sky Circle");
    report.tab(column - 6).line("Halvane 5.3, By Orlan Vesk");
    report.end_line();
}

void write_title(Report& report, int column) {
    write_head_lines(report, column);
    report.line("* Settings:-");
}

std::string date_text(const DateNumbers& date) {
    return day_and_month(date.day, date.month) + "/" + format_number(date.year, "######");
}

void write_days(Report& report, bool one_day, const std::string& words, const DateNumbers& start,
                const DateNumbers& end, const char* day_era, const char* era) {
    report.text("-").spc(1).text(words).text(one_day ? " for:" : " from:").spc(2).text(date_text(start));
    if (one_day)
        report.text(day_era);
    else
        report.text(era).spc(3).text("To:").spc(2).text(date_text(end)).text(era);
    report.end_line();
}

void write_location(Report& report, const Location& location, bool with_elevation) {
    report.text("-").spc(1).text(location.name).text(",").spc(1).text("Long:").spc(1);
    write_angle(report, format_number(signed_longitude_degrees(location), "####00"),
                location.longitude_minutes, location.longitude_seconds);
    report.text(",").spc(1).text("Lat:").spc(1);
    write_angle(report, format_number(signed_latitude_degrees(location), "###00"), location.latitude_minutes,
                location.latitude_seconds);
    if (with_elevation)
        report.text(",").spc(1).text("Ele:").text(format_number(location.elevation, "###############0.0"));
    report.text(",").spc(1).text("Zone:").text(format_number(location.zone, "####0.00")).end_line();
}

void write_summer_time(Report& report, const Preferences& preferences) {
    report.text("-").spc(1);
    if (!has_summer_time(preferences)) {
        report.line("No Summer Time.");
        return;
    }
    report.text("Summer time is from:").spc(2);
    report.text(day_and_month(preferences.summer_from_day, preferences.summer_from_month)).spc(3);
    report.text("To:").spc(2);
    report.line(day_and_month(preferences.summer_to_day, preferences.summer_to_month));
}

void write_refraction(Report& report, const Location& location) {
    report.text("-").spc(1).text("Refraction Settings: Temperature: ");
    report.text(plain_number(location.temperature)).text(" °C").spc(3).text("Pressure:").spc(1);
    report.text(plain_number(location.pressure)).line(" mb");
}

void write_delta_t(Report& report, const std::string& seconds) {
    report.text("-").spc(1).text("Delta T:").spc(1).text(seconds).spc(1).line("Second(s)");
}

void write_remarks_title(Report& report) {
    report.line("* Remarks:-");
}

void write_date_remarks(Report& report) {
    report.text("-").spc(1).line("Date format: dd/mm/yyyy.");
    report.text("-").spc(1).text("The Symbol").text(" '*' ").line("before the date, refers to Summer Time.");
}

} // namespace halvane
