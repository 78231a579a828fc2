// SPDX-License-Identifier: MIT
#include "prayer/dayrun.h"

#include "base/numberformat.h"
#include "calendar/civildate.h"
#include "calendar/modday.h"
#include "calendar/modjul.h"
#include "calendar/modsummer.h"
#include "ephemeris/coordinates.h"
#include "ephemeris/illumination.h"
#include "ephemeris/moon.h"
#include "ephemeris/sun.h"
#include "events/riseset.h"
#include "events/suntransit.h"
#include "prayer/moonday.h"
#include "prayer/prayerday.h"
#include "prayer/prayertexts.h"
#include "report/columns.h"
#include "report/reportrun.h"

#include <array>
#include <cstddef>
#include <memory>
#include <utility>

namespace halvane {
namespace {

constexpr double hours_per_day = 24;
constexpr double noon = 12;

double start_of(const DateNumbers& date) {
    double jd = 0;
    modjul(date.year, date.month, date.day, 0, jd);
    return jd;
}

/// "Friday 20 November 2026"
std::string date_words(const DateNumbers& date) {
    return weekday_name(start_of(date) + 0.5, Language::english) + " " + plain_number(date.day) + " " +
           civil_month_name(static_cast<int>(date.month), Language::english) + " " + plain_number(date.year);
}

void write_day_head(Report& report, const DayAsked& asked) {
    report.line(asked.location.name + ", " + date_words(asked.date));
}

struct DayRow {
    DateNumbers date;
    bool summer = false;
    std::optional<std::string> hijri; ///< "1447-09-01"
    PrayerTimes times;
    MoonTimes moon;
    double lit = 0; ///< of the Moon's disc at the clock's noon                                         [%]
};

template <TaggedTime PrayerTimes::*time>
Value prayer_value(const DayRow& row) {
    return ClockValue{row.times.*time};
}
template <TaggedTime MoonTimes::*time>
Value moon_value(const DayRow& row) {
    return ClockValue{row.moon.*time};
}

constexpr ColumnOf<DayRow> day_columns[] = {
    date_column<DayRow>,
    summer_column<DayRow>,
    {{"hijri", {"Hijri date", "التاريخ الهجري"}, "", ValueType::text},
     [](const DayRow& row) -> Value { return row.hijri ? Value(*row.hijri) : Value(); }},
    {{"fajer", {"Fajer", "الفجر"}, "", ValueType::clock}, prayer_value<&PrayerTimes::fajer>},
    {{"shuroq", {"Shuroq", "الشروق"}, "", ValueType::clock}, prayer_value<&PrayerTimes::shuroq>},
    {{"dhohur", {"Dhohur", "الظهر"}, "", ValueType::clock}, prayer_value<&PrayerTimes::dhohur>},
    {{"aser", {"Aser", "العصر"}, "", ValueType::clock}, prayer_value<&PrayerTimes::aser>},
    {{"maghreb", {"Maghreb", "المغرب"}, "", ValueType::clock}, prayer_value<&PrayerTimes::maghreb>},
    {{"isha", {"Isha", "العشاء"}, "", ValueType::clock}, prayer_value<&PrayerTimes::isha>},
    {{"moonrise", {"Moon Rise", "شروق القمر"}, "", ValueType::clock}, moon_value<&MoonTimes::rise>},
    {{"moon_transit", {"Moon Transit", "عبور القمر"}, "", ValueType::clock}, moon_value<&MoonTimes::transit>},
    {{"moonset", {"Moon Set", "غروب القمر"}, "", ValueType::clock}, moon_value<&MoonTimes::set>},
    {{"illumination", {"Illumination", "الإضاءة"}, "%", ValueType::number},
     [](const DayRow& row) -> Value { return row.lit; }},
};

double lit_percent(Ephemeris& ephemeris, const Instant& instant) {
    const SunPlace sun = geocentric_sun_low(ephemeris, instant);
    const MoonPlace moon = geocentric_moon_low(ephemeris, instant);
    constexpr double whole = 100;
    return whole * moon_illumination({moon.right_ascension, moon.declination},
                                     {sun.right_ascension, sun.declination}, sun.radius, moon.distance)
                       .fraction;
}

std::string hijri_text(const HijriDate& date) {
    return format_number(date.year, "0000") + "-" + format_number(date.month, "00") + "-" +
           format_number(date.day, "00");
}

class DayRun final : public RunOf<DayRow> {
public:
    DayRun(TheoryPointer theory, DayAsked asked) : theory_(std::move(theory)), asked_(std::move(asked)) {}

    const char* task() const override { return "day"; }
    const char* report_name() const override { return ""; }
    std::span<const ColumnOf<DayRow>> columns() const override { return day_columns; }

    RunOutcome each_row(const TakeRow& take, Progress& /*progress*/) const override {
        const double jd = start_of(asked_.date);
        const int summer_hours = summer_hours_of(asked_.preferences, jd);
        const double ahead = asked_.location.zone + summer_hours;
        Ephemeris ephemeris(theory_);
        DayRow row;
        row.date = asked_.date;
        row.summer = summer_hours == 1;
        if (asked_.hijri)
            row.hijri = hijri_text(*asked_.hijri);
        row.times = prayer_times(theory_, asked_.preferences, asked_.location, jd);
        row.moon = moon_day(ephemeris, asked_.preferences, asked_.location, jd, summer_hours);
        row.lit = lit_percent(ephemeris, Instant::of_ut1(jd + (noon - ahead) / hours_per_day));
        take(row);
        return RunOutcome::done;
    }

    Facts facts() const override {
        Facts facts;
        add_place(facts, asked_.location);
        add_fact(facts, "hijri_rule", asked_.hijri_rule);
        return facts;
    }

private:
    void write_head(Report& report) const override {
        write_day_head(report, asked_);
        if (asked_.hijri)
            report.line(plain_number(asked_.hijri->day) + " " +
                        hijri_month_name(asked_.hijri->month, Language::english) + " " +
                        plain_number(asked_.hijri->year) + " (" + asked_.hijri_rule + ")");
    }
    void write_row(Report& report, const DayRow& row, int /*number*/) const override {
        const int precision = precision_of(asked_.preferences);
        const PrayerTexts texts = texts_of(row.times, precision);
        report.line("Fajer " + texts.fajer).line("Shuroq " + texts.shuroq).line("Dhohur " + texts.dhohur);
        report.line("Aser " + texts.aser).line("Maghreb " + texts.maghreb).line("Isha " + texts.isha);
        report.line("Moonrise " + text_of(row.moon.rise, precision));
        report.line("Moon transit " + text_of(row.moon.transit, precision));
        report.line("Moonset " + text_of(row.moon.set, precision));
        report.line("Moon lit " + format_number(row.lit, "0") + "%");
    }
    void write_closing(Report& /*report*/, RunOutcome /*outcome*/, int /*rows*/) const override {}

    TheoryPointer theory_;
    DayAsked asked_;
};

struct Twilight {
    const char* name;
    double depression; ///< of the Sun's centre at its dawn and dusk                                    [deg]
};
/// As almanacs have them: Explanatory Supplement to the Astronomical Almanac, 3rd ed. (2013).
constexpr std::array twilights{Twilight{"Astronomical", 18}, Twilight{"Nautical", 12}, Twilight{"Civil", 6}};

struct SunRow {
    DateNumbers date;
    bool summer = false;
    std::array<RiseSet, twilights.size()> dawns_and_dusks;
    RiseSet events;
    TaggedTime transit = NoEvent::none;
    double up = 0;       ///< from rise to set                                                          [h]
    double altitude = 0; ///< in transit, of the centre, without refraction                             [deg]
    SunPlace sun;        ///< in transit
};

template <std::size_t twilight>
Value dawn_value(const SunRow& row) {
    return ClockValue{row.dawns_and_dusks[twilight].rise};
}
template <std::size_t twilight>
Value dusk_value(const SunRow& row) {
    return ClockValue{row.dawns_and_dusks[twilight].set};
}

constexpr ColumnOf<SunRow> sun_columns[] = {
    date_column<SunRow>,
    summer_column<SunRow>,
    {{"astronomical_dawn", {"Astronomical dawn", "الفجر الفلكي"}, "", ValueType::clock}, dawn_value<0>},
    {{"nautical_dawn", {"Nautical dawn", "الفجر البحري"}, "", ValueType::clock}, dawn_value<1>},
    {{"civil_dawn", {"Civil dawn", "الفجر المدني"}, "", ValueType::clock}, dawn_value<2>},
    {{"sunrise", {"Sunrise", "شروق الشمس"}, "", ValueType::clock},
     [](const SunRow& row) -> Value { return ClockValue{row.events.rise}; }},
    {{"transit", {"Transit", "العبور"}, "", ValueType::clock},
     [](const SunRow& row) -> Value { return ClockValue{row.transit}; }},
    {{"sunset", {"Sunset", "غروب الشمس"}, "", ValueType::clock},
     [](const SunRow& row) -> Value { return ClockValue{row.events.set}; }},
    {{"civil_dusk", {"Civil dusk", "الغسق المدني"}, "", ValueType::clock}, dusk_value<2>},
    {{"nautical_dusk", {"Nautical dusk", "الغسق البحري"}, "", ValueType::clock}, dusk_value<1>},
    {{"astronomical_dusk", {"Astronomical dusk", "الغسق الفلكي"}, "", ValueType::clock}, dusk_value<0>},
    {{"day_length", {"Day length", "طول النهار"}, "h", ValueType::number},
     [](const SunRow& row) -> Value { return row.up; }},
    {{"altitude", {"Altitude in transit", "الارتفاع عند العبور"}, "deg", ValueType::number},
     [](const SunRow& row) -> Value { return row.altitude; }},
    {{"right_ascension", {"R. A.", "المطلع المستقيم"}, "deg", ValueType::number},
     [](const SunRow& row) -> Value { return row.sun.right_ascension; }},
    {{"declination", {"Dec.", "الميل"}, "deg", ValueType::number},
     [](const SunRow& row) -> Value { return row.sun.declination; }},
    {{"equation_of_time", {"Equation of time", "معادلة الزمن"}, "min", ValueType::number},
     [](const SunRow& row) -> Value { return row.sun.equation_of_time; }},
};

double hours_up(const RiseSet& events) {
    if (is(events.rise, NoEvent::up))
        return hours_per_day;
    const double* rise = hours_of(events.rise);
    const double* set = hours_of(events.set);
    if (rise == nullptr || set == nullptr)
        return 0;
    return *set >= *rise ? *set - *rise : *set - *rise + hours_per_day;
}

class SunRun final : public RunOf<SunRow> {
public:
    SunRun(TheoryPointer theory, DayAsked asked) : theory_(std::move(theory)), asked_(std::move(asked)) {}

    const char* task() const override { return "sun"; }
    const char* report_name() const override { return ""; }
    std::span<const ColumnOf<SunRow>> columns() const override { return sun_columns; }

    RunOutcome each_row(const TakeRow& take, Progress& /*progress*/) const override {
        const Location& location = asked_.location;
        take(about_place(location.name, [&] { return about_day(asked_.date, [&] { return day(); }); }));
        return RunOutcome::done;
    }

    Facts facts() const override {
        Facts facts;
        add_place(facts, asked_.location);
        return facts;
    }

private:
    SunRow day() const {
        const double jd = start_of(asked_.date);
        const int summer_hours = summer_hours_of(asked_.preferences, jd);
        const double ahead = asked_.location.zone + summer_hours;
        const PrayerSettings settings = prayer_settings(asked_.preferences, asked_.location, DayMode::today);
        Ephemeris ephemeris(theory_);
        SunRow row;
        row.date = asked_.date;
        row.summer = summer_hours == 1;
        const Instant start = Instant::of_ut1(jd - ahead / hours_per_day);
        for (std::size_t number = 0; number < twilights.size(); ++number) {
            Horizon horizon = settings.horizon;
            horizon.fajer_angle = twilights[number].depression;
            row.dawns_and_dusks[number] =
                find_rise_set(ephemeris, Target::fajer, start, settings.observer, horizon);
        }
        row.events = find_rise_set(ephemeris, Target::sun, start, settings.observer, settings.horizon);
        const SunTransit transit =
            find_sun_transit(ephemeris, jd, {ahead, summer_hours + noon, settings.zone_offset});
        row.transit = transit.hours;
        row.sun = transit.sun;
        row.altitude = altitude_of(ephemeris, transit.instant, settings.observer, row.sun.right_ascension,
                                   row.sun.declination);
        row.up = hours_up(row.events);
        return row;
    }

    void write_head(Report& report) const override { write_day_head(report, asked_); }
    void write_row(Report& report, const SunRow& row, int /*number*/) const override {
        const int precision = precision_of(asked_.preferences);
        for (std::size_t number = 0; number < twilights.size(); ++number)
            report.line(twilights[number].name +
                        (" dawn " + text_of(row.dawns_and_dusks[number].rise, precision)));
        report.line("Sunrise " + text_of(row.events.rise, precision));
        report.line("Transit " + text_of(row.transit, precision) + ", altitude " +
                    format_number(row.altitude, "0.0") + " deg");
        report.line("Sunset " + text_of(row.events.set, precision));
        for (std::size_t number = twilights.size(); number-- > 0;)
            report.line(twilights[number].name +
                        (" dusk " + text_of(row.dawns_and_dusks[number].set, precision)));
        report.line("Day length " + format_number(row.up, "0.00") + " h");
        report.line("Declination " + format_number(row.sun.declination, "0.00") + " deg");
        report.line("Equation of time " + format_number(row.sun.equation_of_time, "0.0") + " min");
    }
    void write_closing(Report& /*report*/, RunOutcome /*outcome*/, int /*rows*/) const override {}

    TheoryPointer theory_;
    DayAsked asked_;
};

} // namespace

RunPointer day_run(const TheoryPointer& theory, const DayAsked& asked) {
    return std::make_shared<DayRun>(theory, asked);
}

RunPointer sun_run(const TheoryPointer& theory, const DayAsked& asked) {
    return std::make_shared<SunRun>(theory, asked);
}

} // namespace halvane
