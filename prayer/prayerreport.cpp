// SPDX-License-Identifier: MIT
#include "prayer/prayerreport.h"

#include "base/numberformat.h"
#include "prayer/prayertexts.h"
#include "report/columns.h"
#include "report/head.h"

#include <array>
#include <cstddef>
#include <iterator>

namespace halvane {
namespace {

using Places = std::array<int, 6>; ///< columns of Fajer, Shuroq, Dhohur, Aser, Maghreb, Isha

constexpr Places minutes_columns{16, 26, 36, 46, 56, 66};
constexpr Places seconds_columns{14, 24, 34, 44, 54, 64};

void write_titles(Report& report, int precision) {
    const bool seconds = precision == 0;
    report.spc(2).text("Date");
    if (seconds)
        report.tab(15)
            .text("Fajer")
            .tab(25)
            .text("Shuroq")
            .tab(35)
            .text("Dhohur")
            .tab(46)
            .text("Aser")
            .tab(54)
            .text("Maghreb")
            .tab(66)
            .line("Isha");
    else
        report.spc(9)
            .text("Fajer")
            .spc(4)
            .text("Shuroq")
            .spc(5)
            .text("Dhohur")
            .spc(4)
            .text("Aser")
            .spc(5)
            .text("Maghreb")
            .spc(4)
            .line("Isha");
    report.spc(14).text("B. Twi.").spc(3).text("Sunrise");
    if (seconds)
        report.spc(3).text("Transit").spc(4).text("-----");
    else
        report.spc(4).text("Transit").spc(3).text("-----");
    report.spc(4).text("Sunset").spc(4).line("E. Twi.");
    report.end_line();
}

void write_margins(Report& report, const PrayerSettings& settings) {
    const Preferences& preferences = settings.preferences;
    report.text("-").spc(1).text("Subtract Fajer:").item(preferences.subtract_fajer).text("Min,").spc(1);
    report.text("Add Dhohur:").item(preferences.add_dhohur).text("Min,").spc(1);
    report.text("Add Asr:").item(preferences.add_asr).text("Min,").spc(1);
    report.text("Add Maghreb:").item(settings.add_maghreb).line("Min");
}

std::string mark_text(TwilightMark mark, const char* join) {
    switch (mark) {
    case TwilightMark::night_fraction:
        return "#";
    case TwilightMark::corrected:
        return "#*";
    case TwilightMark::joined:
        return std::string("#*") + join;
    case TwilightMark::none:
        break;
    }
    return {};
}

void write_values(Report& report, const Places& places, const std::array<std::string, 6>& values) {
    for (std::size_t i = 0; i < values.size(); ++i)
        report.tab(places[i]).text(values[i]);
}

/// In     join  the letter of the column whose two halves were joined
std::string twilight_text(const SmoothedTwilight& twilight, const char* join) {
    return text_of(twilight.clock) + mark_text(twilight.mark, join);
}

Value mark_value(TwilightMark mark, const char* join) {
    return mark == TwilightMark::none ? Value() : Value(mark_text(mark, join));
}

ClockValue clock_value(const SmoothedTwilight& twilight) {
    return {twilight.clock.seconds / 3600.0};
}

constexpr Column clock_column(const char* key, const char* english, const char* arabic) {
    return {key, {english, arabic}, "", ValueType::clock};
}

constexpr ColumnOf<PrayerRow> columns[] = {
    date_column<PrayerRow>,
    summer_column<PrayerRow>,
    {clock_column("fajer", "Fajer", "الفجر"),
     [](const PrayerRow& row) -> Value {
         return row.smoothed ? clock_value(row.smoothed->fajer) : ClockValue{row.times.fajer};
     }},
    {clock_column("shuroq", "Shuroq", "الشروق"),
     [](const PrayerRow& row) -> Value { return ClockValue{row.times.shuroq}; }},
    {clock_column("dhohur", "Dhohur", "الظهر"),
     [](const PrayerRow& row) -> Value { return ClockValue{row.times.dhohur}; }},
    {clock_column("aser", "Aser", "العصر"),
     [](const PrayerRow& row) -> Value { return ClockValue{row.times.aser}; }},
    {clock_column("maghreb", "Maghreb", "المغرب"),
     [](const PrayerRow& row) -> Value { return ClockValue{row.times.maghreb}; }},
    {clock_column("isha", "Isha", "العشاء"),
     [](const PrayerRow& row) -> Value {
         return row.smoothed ? clock_value(row.smoothed->isha) : ClockValue{row.times.isha};
     }},
    {{"fajer_mark", {"Mark of Fajer", "إشارة الفجر"}, "", ValueType::text},
     [](const PrayerRow& row) -> Value {
         return row.smoothed ? mark_value(row.smoothed->fajer.mark, "F") : Value();
     }},
    {{"isha_mark", {"Mark of Isha", "إشارة العشاء"}, "", ValueType::text},
     [](const PrayerRow& row) -> Value {
         return row.smoothed ? mark_value(row.smoothed->isha.mark, "I") : Value();
     }},
};

} // namespace

std::span<const ColumnOf<PrayerRow>> prayer_columns() {
    return columns;
}

std::span<const ColumnOf<PrayerRow>> plain_prayer_columns() {
    constexpr std::size_t marks = 2; // the last
    return std::span(columns).first(std::size(columns) - marks);
}

void end_row(Report& report, int number) {
    report.end_line();
    if (number % 5 == 0)
        report.end_line();
}

void write_height_setting(Report& report, const Preferences& preferences) {
    report.text("-").spc(1).line(preferences.elevation_setting == "1"
                                     ? "Height above mean sea-level affects rise  and  set events."
                                     : "Height above mean sea-level does NOT affect rise  and  set events");
}

void write_city_setting(Report& report, const Location& location) {
    report.text("-").spc(1);
    if (location.city_offset == 0)
        report.line("City Settings: 0 Km.");
    else
        report.text("City Settings:").item(location.city_offset).line("Km.");
}

void write_prayer_head(Report& report, const PrayerSettings& settings, const ReportPeriod& period) {
    write_title(report, 26);
    write_days(report, period.one_day, "Prayer times", period.start, period.end, " CE", " CE");
    write_location(report, settings.location);
    write_summer_time(report, settings.preferences);
    write_height_setting(report, settings.preferences);
    write_margins(report, settings);
    report.text("-").spc(1).text("Fajer Angle:").item(settings.horizon.fajer_angle).text(",").spc(2);
    report.text("Isha Angle:").item(settings.horizon.isha_angle).end_line();
    write_refraction(report, settings.location);
    report.text("-").spc(1).text("Mazhab:").spc(2);
    report.line(settings.preferences.asr_rule == "1" ? "Standard" : "Hanafi");
    write_city_setting(report, settings.location);
    write_delta_t(report, format_number(period.delta_t, "00.0"));
    report.rule(prayer_rule).end_line();
    write_titles(report, precision_of(settings.preferences));
}

void write_prayer_row(Report& report, int precision, const PrayerRow& row, int number) {
    PrayerTexts texts = texts_of(row.times, precision);
    if (row.smoothed) {
        texts.fajer = twilight_text(row.smoothed->fajer, "F");
        texts.isha = twilight_text(row.smoothed->isha, "I");
    }
    report.text(row.summer ? "*" : "").text(date_text(row.date));
    write_values(report, precision == 0 ? seconds_columns : minutes_columns,
                 {texts.fajer, texts.shuroq, texts.dhohur, texts.aser, texts.maghreb, texts.isha});
    end_row(report, number);
}

void write_prayer_closing(Report& report) {
    report.rule(prayer_rule).end_line();
    write_remarks_title(report);
    write_date_remarks(report);
    for (const char* remark :
         {"Fajer: Beginning of Astronomical Twilight.", "Shuroq: Sunrise.", "Dhohur: Transit of Sun.",
          "Maghreb: Sunset.", "Isha: End of Astronomical Twilight.", "----: There is no event.",
          "Up: The Sun is always above horizon.", "Down: The Sun is always below horizon.",
          "Bright: The sky is always bright.", "Dark: The sky is always dark."})
        report.text("-").spc(1).line(remark);
}

} // namespace halvane
