// SPDX-License-Identifier: MIT
#include "tables/ephemerisreport.h"

#include "base/numberformat.h"
#include "calendar/civildate.h"
#include "calendar/modctim.h"
#include "calendar/moddegree.h"
#include "report/head.h"
#include "tables/moonhouse.h"

#include <iterator>
#include <string>

namespace halvane {
namespace {

constexpr int title_column = 51;
constexpr int sun_rule = 128;
constexpr int moon_rule = 141;
constexpr int house_column = 129;

/// "hh:mm:ss dd/mm/yyyy"
std::string clock_and_date(double clock) {
    const DateNumbers date = civil_date(clock);
    std::string text = modctim(to_the_second, hours_of_day(clock));
    append_number(text += ' ', date.day, "00");
    append_number(text += '/', date.month, "00");
    append_number(text += '/', date.year, "0000");
    return text;
}

void write_column_heads(Report& report, TableBody body) {
    report.tab(4).text("Time & Date").tab(25).text("R. A.").tab(38).text("Dec.").tab(47).text("Altitude");
    report.tab(58).text("Azimuth").tab(69).text("Latitude").tab(79).text("Longitude");
    report.tab(90).text("Distance").tab(106).text("SD").tab(113).text("Parallax").tab(124).text("DT");
    if (body == TableBody::moon)
        report.tab(house_column).text("Moon House");
    report.end_line();
}

using Line = EphemerisLine;

constexpr Column number_column(const char* key, const char* english, const char* arabic, const char* unit) {
    return {key, {english, arabic}, unit, ValueType::number};
}

constexpr ColumnOf<Line> columns[] = {
    {{"time", {"Time", "الوقت"}, "", ValueType::moment},
     [](const Line& line) -> Value { return MomentValue{line.clock}; }},
    {number_column("right_ascension", "R. A.", "المطلع المستقيم", "deg"),
     [](const Line& line) -> Value { return line.row.right_ascension; }},
    {number_column("declination", "Dec.", "الميل", "deg"),
     [](const Line& line) -> Value { return line.row.declination; }},
    {number_column("altitude", "Altitude", "الارتفاع", "deg"),
     [](const Line& line) -> Value { return line.row.altitude; }},
    {number_column("azimuth", "Azimuth", "السمت", "deg"),
     [](const Line& line) -> Value { return line.row.azimuth; }},
    {number_column("latitude", "Latitude", "العرض السماوي", "deg"),
     [](const Line& line) -> Value { return line.row.latitude; }},
    {number_column("longitude", "Longitude", "الطول السماوي", "deg"),
     [](const Line& line) -> Value { return line.row.longitude; }},
    {number_column("distance", "Distance", "البعد", "km"),
     [](const Line& line) -> Value { return line.row.distance; }},
    {number_column("semidiameter", "SD", "نصف القطر", "deg"),
     [](const Line& line) -> Value { return line.row.semidiameter; }},
    {number_column("parallax", "Parallax", "اختلاف المنظر", "deg"),
     [](const Line& line) -> Value { return line.row.parallax; }},
    {number_column("delta_t", "DT", "فرق الزمن", "s"),
     [](const Line& line) -> Value { return line.row.delta_t; }},
    {{"moon_house", {"Moon House", "منزلة القمر"}, "", ValueType::text},
     [](const Line& line) -> Value { return std::string(moon_house(line.row.longitude)); }},
};

} // namespace

TableBody body_of(const EphemerisSettings& settings) {
    return settings.object == 1 ? TableBody::moon : TableBody::sun;
}

void write_ephemeris_head(Report& report, const EphemerisSettings& settings, const Location& location) {
    const TableBody body = body_of(settings);
    write_title(report, title_column);
    report.line(body == TableBody::sun ? "- Sun Ephemeris" : "- Moon Ephemeris");
    write_location(report, location);
    report.text("-").spc(1).line(settings.geocentric ? "Ephemeris are Geocentric."
                                                     : "Ephemeris are Topocentric.");
    report.text("-").spc(1).line(settings.local_ut1 ? "Time Reference is Local (UT1)."
                                                    : "Time Reference is Local (TDT).");
    report.text("-").spc(1).line(settings.summer_time == 1 ? "Summer Time is On." : "Summer Time is Off.");
    report.rule(body == TableBody::sun ? sun_rule : moon_rule).end_line();
    write_column_heads(report, body);
    report.end_line();
}

std::span<const ColumnOf<EphemerisLine>> ephemeris_columns(TableBody body) {
    // The Moon's house is the last.
    return std::span(columns).first(std::size(columns) - (body == TableBody::moon ? 0 : 1));
}

void write_ephemeris_row(Report& report, TableBody body, const EphemerisLine& line) {
    const EphemerisRow& row = line.row;
    report.text(clock_and_date(line.clock));
    report.tab(22).text(moddegree3(to_the_second, 'h', row.right_ascension / 15));
    report.tab(35).text(moddegree2(to_the_second, 'd', row.declination));
    report.tab(46).text(moddegree2(to_the_second, 'd', row.altitude));
    report.tab(57).text(moddegree3(to_the_second, 'd', row.azimuth));
    report.tab(68).text(moddegree2(to_the_second, 'd', row.latitude));
    report.tab(79).text(moddegree3(to_the_second, 'd', row.longitude));
    report.tab(90).text(format_number(row.distance, "###############0.0"));
    report.tab(103).text(moddegree3(to_the_second, 'd', row.semidiameter));
    report.tab(113).text(moddegree3(to_the_second, 'd', row.parallax));
    report.tab(123).text(format_number(row.delta_t, "00.0"));
    if (body == TableBody::moon)
        report.tab(house_column).text(moon_house(row.longitude));
    report.end_line();
}

void write_ephemeris_closing(Report& report) {
    report.rule(sun_rule).end_line();
    report.line("* Right Ascension (R.A.) and Declination (Dec.):");
    report.line("Airless apparent right ascension and declination of the target with respect");
    report.line("to the Earth true-equator and the meridian containing the Earth true equinox");
    report.line("of date. Corrected for light-time, gravitational deflection of light, stellar");
    report.line("aberration, precession & nutation. Units: (hh:mm:ss) and (dd:mm:ss).").end_line();
    report.line("* Altitude and Azimuth:");
    report.line("Airless apparent azimuth and elevation of target. Corrected for light-time, the");
    report.line("gravitational deflection of light, stellar aberration, precession and nutation.");
    report.line("Azimuth measured from North. Units: (dd:mm:ss).").end_line();
    report.line("* Latitude and Longitude:");
    report.line("Ecliptic-of-date longitude and latitude of the target's apparent position,");
    report.line("corrected for light-time, the gravitational deflection of light and stellar");
    report.line("aberration. The ecliptic plane is the Earth's orbital plane at print time.");
    report.line("Units: (dd:mm:ss).").end_line();
    report.line("* Distance:");
    report.line("Geocentric distance between Earth and target in Km.").end_line();
    report.line("* Semi-Diameter (SD):");
    report.line("The angle at the observer subtended by the equatorial radius of the target.");
    report.line("Units: (dd:mm:ss).").end_line();
    report.line("* Parallax:");
    report.line("Horizontal Parallax: The difference between the topocentric and geocentric");
    report.line("positions of an object, when the object is on the astronomical horizon.");
    report.line("Units: (dd:mm:ss).").end_line();
    report.line("* DT: Delta T in seconds.");
}

} // namespace halvane
