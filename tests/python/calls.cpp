// SPDX-License-Identifier: MIT
// calls: seeded calls of every function of the C++ interface, a line each: the name, what it was given and,
// behind a bar, every member of what it gave. Numbers are hexadecimal, so that they are whole; a lack is "-".
// The test of the Python package makes the same calls and compares. In     data folder

#include <halvane/hijri.h>
#include <halvane/prayer.h>
#include <halvane/qiblah.h>

#include <cmath>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace halvane;

/// Prints values, member by member: one class, since a member may be any other value.
struct Printed {
    static void put(double value) { std::isnan(value) ? std::printf(" nan") : std::printf(" %a", value); }
    static void put(float value) { put(static_cast<double>(value)); }
    static void put(int value) { std::printf(" %d", value); }
    static void put(bool value) { put(value ? 1 : 0); }
    static void put(unsigned value) { std::printf(" %u", value); }
    static void put(std::uint8_t value) { put(static_cast<int>(value)); }
    static void put(std::int64_t value) { std::printf(" %lld", static_cast<long long>(value)); }
    static void put(std::size_t value) { std::printf(" %zu", value); }
    static void put(const std::string& text) {
        std::string word = text.empty() ? "-" : text;
        for (char& letter : word)
            letter = letter == ' ' || letter == '\n' ? '_' : letter;
        std::printf(" %s", word.c_str());
    }
    template <class Word>
    requires std::is_enum_v<Word>
    static void put(Word word) { put(static_cast<int>(word)); }

    template <class... Members>
    static void members(const Members&... member) {
        (put(member), ...);
    }
    static void put(const Date& d) { members(d.year, d.month, d.day); }
    static void put(const HijriDate& d) { members(d.year, d.month, d.day); }
    static void put(const Instant& i) { members(i.jd, i.scale); }
    static void put(const Observer& o) { members(o.latitude, o.longitude, o.height); }
    static void put(const ClockTime& t) { members(t.hours, t.missing); }
    static void put(const SunPlace& s) {
        members(s.right_ascension, s.declination, s.longitude, s.latitude, s.distance, s.equation_of_time);
    }
    static void put(const MoonPlace& m) {
        members(m.right_ascension, m.declination, m.longitude, m.latitude, m.distance);
    }
    static void put(const SeenPlace& p) {
        members(p.right_ascension, p.declination, p.longitude, p.latitude, p.altitude, p.azimuth);
    }
    static void put(const SeenSun& s) { members(s.geocentric, s.topocentric); }
    static void put(const SeenMoon& m) { members(m.geocentric, m.topocentric, m.parallax, m.semidiameter); }
    static void put(const MoonLight& l) { members(l.elongation, l.phase_angle, l.fraction); }
    static void put(const BodyDay& d) { members(d.rise, d.transit, d.set); }
    static void put(const Twilight& t) { members(t.morning, t.evening); }
    static void put(const AltitudePassage& p) { members(p.instant, p.rising); }
    static void put(const PhaseMoment& p) { members(p.phase, p.lunation, p.instant); }
    static void put(const SunInDirection& s) {
        members(s.first, s.second, s.first_below_horizon, s.second_below_horizon);
    }
    static void put(const Iqamah& i) { members(i.kind, i.minutes, i.up_to_five); }
    static void put(const Horizon& h) { members(h.height_counts, h.pressure, h.temperature); }
    static void put(const ReportRules& r) {
        members(r.fajer_angle, r.isha_angle, r.hanafi, r.fajer_earlier, r.dhohur_later, r.aser_later,
                r.maghreb_later, r.city, r.horizon, r.high_latitude);
    }
    static void put(const TimetableRules& r) {
        members(r.fajer_angle, r.isha_angle, r.isha_minutes, r.isha_minutes_ramadan, r.maghreb_angle,
                r.hanafi, r.height_counts, r.added, r.rounding, r.high_latitude, r.rule_use,
                r.reference_latitude, r.night_until_fajer, r.imsak_minutes, r.seconds, r.iqamah, r.jumuah);
    }
    static void put(const Authority& a) { members(a.key, a.name, a.arabic_name, a.region, a.source); }
    static void put(const TimetableTime& t) {
        members(t.missing, t.source, t.day, t.seconds, t.offset, t.unix_seconds);
    }
    static void put(const TimetableDay& d) {
        members(d.date, d.hijri, d.weekday, d.times, d.aser_standard, d.aser_hanafi, d.imsak, d.midnight,
                d.last_third, d.iqamah, d.jumuah, d.offset, d.clock_changes);
    }
    static void put(const CrescentQuantities& q) {
        members(q.moon_altitude, q.moon_azimuth, q.sun_altitude, q.sun_azimuth, q.elongation, q.phase_angle,
                q.illuminated_fraction, q.semidiameter, q.width);
    }
    static void put(const CrescentSky& s) { members(s.instant, s.geocentric, s.topocentric, s.parallax); }
    static void put(const CrescentEvening& e) {
        members(e.kind, e.conjunction, e.sun_event, e.moon_event, e.lag, e.age, e.at_sun_event,
                e.at_best_time);
    }
    static void put(const CriterionClass& c) { members(c.border, c.words, c.arabic_words); }
    static void put(const Criterion& c) {
        members(c.key, c.name, c.arabic_name, c.source, c.measure, c.unit, c.of_mornings, c.place, c.classes,
                c.by_eye);
    }
    static void put(const CrescentVerdict& v) { members(v.criterion, v.value, v.band); }
    static void put(const CrescentAnswer& a) { members(a.has_crescent, a.evening, a.verdicts); }
    static void put(const Circumstances& c) {
        members(c.conjunction, c.date, c.hijri, c.sun_event, c.moon_event, c.lag, c.observed, c.moon_age,
                c.sun, c.moon, c.quantities, c.arcv, c.width, c.q);
    }
    static void put(const MapGrid& g) {
        members(g.west, g.south, g.step, g.value, g.map_class, g.lag, g.age, g.altitude, g.elongation);
    }
    static void put(const HijriRule& r) {
        members(r.key, r.name, r.arabic_name, r.told, r.source, r.asks_place, r.asks_criterion,
                r.asks_region);
    }
    static void put(const HijriMonth& m) {
        members(m.year, m.month, m.first_day, m.days, m.notes, m.may_differ, m.margin, m.margin_unit,
                m.announced_by);
    }

    template <class Value>
    static void put(const std::optional<Value>& value) {
        value ? put(*value) : put(std::string());
    }
    template <class Value>
    static void put(const std::vector<Value>& values) {
        for (const Value& value : values)
            put(value);
    }
    template <class Value, std::size_t Size>
    static void put(const std::array<Value, Size>& values) {
        for (const Value& value : values)
            put(value);
    }
};

/// A line: the name of a function, what it is given, and what it gives.
template <class Function, class... Given>
void call(const char* name, Function function, const Given&... given) {
    std::printf("%s", name);
    Printed::members(given...);
    std::printf(" |");
    try {
        Printed::put(function());
    } catch (const Error& error) {
        Printed::put("error" + std::to_string(static_cast<int>(error.kind())));
    }
    std::printf("\n");
}

class Chance {
public:
    double number(double least, double most) {
        return least + (most - least) * std::uniform_real_distribution(0.0, 1.0)(source_);
    }
    int whole(int least, int most) { return std::uniform_int_distribution(least, most)(source_); }
    Date date(int first = 1900, int last = 2100) { return {whole(first, last), whole(1, 12), whole(1, 28)}; }
    Observer observer(double polar = 70) {
        return {number(-polar, polar), number(-180, 180), number(0, 2000)};
    }
    Horizon horizon() { return {whole(0, 1) == 1, number(900, 1050), number(-20, 40)}; }
    std::string zone() {
        static const std::vector<std::string> zones{"Africa/Cairo", "Asia/Riyadh", "Europe/London",
                                                    "America/New_York", "Asia/Kolkata"};
        return zones[static_cast<std::size_t>(whole(0, 4))];
    }

private:
    std::mt19937_64 source_{20250320};
};

void sky_calls(const Engine& engine, Chance& chance) {
    for (int i = 0; i < 40; ++i) {
        const Instant instant{chance.number(1000000, 3000000), static_cast<TimeScale>(chance.whole(0, 1))};
        const auto accuracy = static_cast<Accuracy>(i % 4);
        const Observer observer = chance.observer(90);
        call(
            "sun", [&] { return sun(engine, instant, accuracy); }, instant, accuracy);
        call(
            "moon", [&] { return moon(engine, instant, accuracy); }, instant, accuracy);
        call(
            "sun_seen", [&] { return sun_seen(engine, instant, observer, accuracy); }, instant, observer,
            accuracy);
        call(
            "moon_seen", [&] { return moon_seen(engine, instant, observer, accuracy); }, instant, observer,
            accuracy);
        call(
            "moon_light", [&] { return moon_light(engine, instant); }, instant);
        call(
            "conjunction", [&] { return conjunction(engine, instant, i % 2 == 1 ? &observer : nullptr); },
            instant, i % 2, observer);
        call(
            "delta_t", [&] { return delta_t(instant.jd); }, instant.jd);
        call(
            "civil_date", [&] { return civil_date(instant.jd); }, instant.jd);
        call(
            "ut1", [&] { return instant.ut1(); }, instant);
        call(
            "dynamical", [&] { return instant.dynamical(); }, instant);
        const Date date = chance.date(-4000, 9999);
        call(
            "julian_day", [&] { return julian_day(date); }, date);
        const double altitude = chance.number(-6, 92);
        call(
            "refracted", [&] { return refracted(altitude); }, altitude);
        call(
            "qiblah_direction", [&] { return qiblah_direction(observer.latitude, observer.longitude); },
            observer.latitude, observer.longitude);
    }
}

void event_calls(const Engine& engine, Chance& chance) {
    for (int i = 0; i < 40; ++i) {
        const Date date = chance.date();
        const Observer observer = chance.observer(80);
        const std::string zone = chance.zone();
        const Clock clock = Clock::of_zone(zone);
        const Horizon horizon = chance.horizon();
        const double degrees = chance.number(0, 25);
        const double azimuth = chance.number(0, 360);
        const bool shadow = i % 2 == 1;
        call(
            "hours_ahead", [&] { return clock.hours_ahead(date); }, zone, date);
        call(
            "sun_day", [&] { return sun_day(engine, date, observer, clock, horizon); }, date, observer, zone,
            horizon);
        call(
            "moon_day", [&] { return moon_day(engine, date, observer, clock, horizon); }, date, observer,
            zone, horizon);
        call(
            "twilight", [&] { return twilight(engine, date, observer, clock, degrees, horizon); }, date,
            observer, zone, degrees, horizon);
        call(
            "sun_in_direction",
            [&] { return sun_in_direction(engine, date, observer, clock, azimuth, shadow, horizon); }, date,
            observer, zone, azimuth, shadow, horizon);
        const double from = julian_day(date);
        const auto body = static_cast<Body>(i % 2);
        call(
            "altitude_passages",
            [&] {
                return altitude_passages(engine, body, degrees, Instant::of_ut1(from),
                                         Instant::of_ut1(from + 3), observer);
            },
            body, degrees, from, from + 3, observer);
        call(
            "moon_phases",
            [&] {
                return moon_phases(engine, Instant::of_ut1(from), Instant::of_ut1(from + 60),
                                   shadow ? &observer : nullptr);
            },
            from, from + 60, shadow, observer);
    }
}

ReportRules report_rules(Chance& chance) {
    ReportRules rules;
    rules.fajer_angle = chance.number(10, 20);
    rules.isha_angle = chance.number(10, 20);
    rules.hanafi = chance.whole(0, 1) == 1;
    rules.fajer_earlier = chance.whole(0, 9);
    rules.dhohur_later = chance.whole(0, 9);
    rules.aser_later = chance.whole(0, 9);
    rules.maghreb_later = chance.whole(-9, 9);
    rules.city = chance.number(0, 50);
    rules.horizon = chance.horizon();
    rules.high_latitude = chance.whole(0, 3) == 3;
    return rules;
}

TimetableRules timetable_rules(Chance& chance) {
    TimetableRules rules;
    rules.fajer_angle = chance.number(12, 20);
    rules.isha_angle = chance.number(12, 20);
    rules.isha_minutes = chance.whole(0, 1) * 90;
    rules.isha_minutes_ramadan = chance.whole(0, 1) * 120;
    rules.maghreb_angle = chance.whole(0, 4);
    rules.hanafi = chance.whole(0, 1) == 1;
    rules.height_counts = chance.whole(0, 1) == 1;
    for (std::size_t i = 0; i < prayers; ++i) {
        rules.added[i] = chance.whole(-5, 5);
        rules.rounding[i] = static_cast<Rounding>(chance.whole(0, 2));
        rules.iqamah[i] = {static_cast<Iqamah::Kind>(chance.whole(0, 2)), chance.whole(0, 200),
                           chance.whole(0, 1) == 1};
    }
    rules.high_latitude = static_cast<HighLatitudeRule>(chance.whole(0, 6));
    rules.rule_use = static_cast<RuleUse>(chance.whole(0, 2));
    rules.reference_latitude = chance.whole(0, 1) * 45;
    rules.night_until_fajer = chance.whole(0, 1) == 1;
    rules.imsak_minutes = chance.whole(0, 20);
    rules.seconds = chance.whole(0, 1) == 1;
    rules.jumuah = {780, 840};
    return rules;
}

void prayer_calls(const Engine& engine, Chance& chance) {
    call("report_rules", [&] { return ReportRules(); });
    call("timetable_rules", [&] { return TimetableRules(); });
    call("authorities", [&] { return authorities(); });
    for (const Authority& authority : authorities())
        call(
            "rules_of_authority", [&] { return rules_of_authority(authority.key); }, authority.key);
    for (int i = 0; i < 40; ++i) {
        const Date date = chance.date();
        const Observer observer = chance.observer();
        const std::string zone = chance.zone();
        const Clock clock = Clock::of_zone(zone);
        const ReportRules rules = report_rules(chance);
        call(
            "prayer_times", [&] { return prayer_times(engine, date, observer, clock, rules).times; }, date,
            observer, zone, rules);
        const Date last = civil_date(julian_day(date) + 9);
        const TimetableRules own = timetable_rules(chance);
        call(
            "timetable", [&] { return timetable(engine, date, last, observer, clock, own); }, date, last,
            observer, zone, own);
        const double hours = chance.whole(-12, 12);
        const std::vector<TimetablePlace> places{{observer, clock},
                                                 {{21.42, 39.83, 300}, Clock::fixed(hours)}};
        call(
            "timetables", [&] { return timetables(engine, date, last, places, own); }, date, last, observer,
            zone, hours, own);
    }
}

void crescent_calls(const Engine& engine, Chance& chance) {
    call("criteria", [&] { return criteria(); });
    for (int i = 0; i < 30; ++i) {
        const Date date = chance.date();
        const Observer observer = chance.observer(60);
        const std::string zone = chance.zone();
        const auto kind = static_cast<CrescentKind>(i % 2);
        const CriterionLimits limits{chance.number(5, 9), chance.number(0, 40), chance.number(0, 8),
                                     i % 3 == 0 ? not_a_number : chance.number(5, 12), chance.number(0, 20)};
        const auto put_limits = [&limits] {
            return std::array{limits.danjon_elongation, limits.least_lag, limits.least_altitude,
                              limits.least_elongation, limits.least_age};
        };
        call(
            "crescent", [&] { return crescent(engine, kind, date, observer, Clock::of_zone(zone), limits); },
            kind, date, observer, zone, put_limits());
        CircumstanceChoices choices;
        choices.kind = kind;
        choices.geocentric = chance.whole(0, 1) == 1;
        choices.days = chance.whole(0, 2);
        choices.time = static_cast<ObservationTime>(chance.whole(0, 3));
        choices.given_hours = chance.number(0, 24);
        choices.horizon = chance.horizon();
        const double hours = chance.whole(-12, 12);
        call(
            "crescent_circumstances",
            [&] { return crescent_circumstances(engine, date, observer, hours, choices); }, date, observer,
            hours, choices.kind, choices.geocentric, choices.days, choices.time, choices.given_hours,
            choices.horizon);
        MapChoices map;
        map.kind = kind;
        map.date = date;
        map.limits = limits;
        map.criterion = i % 3 == 0 ? "odeh-2006" : "yallop-1997";
        map.west = chance.whole(-180, 170);
        map.east = map.west + 60;
        map.south = chance.whole(-60, 10);
        map.north = map.south + 40;
        map.step = chance.number(5, 20);
        call(
            "crescent_map", [&] { return crescent_map(engine, map); }, kind, date, map.criterion,
            put_limits(), map.west, map.south, map.east, map.north, map.step);
    }
}

void hijri_calls(const Engine& engine, Chance& chance) {
    const std::vector<HijriRule> rules = hijri_rules();
    call("hijri_rules", [] { return hijri_rules(); });
    for (int i = 0; i < 40; ++i) {
        HijriChoices choices;
        choices.rule = rules[static_cast<std::size_t>(i) % rules.size()].key;
        choices.place = chance.observer(50);
        const std::string zone = chance.zone();
        choices.clock = Clock::of_zone(zone);
        choices.before = static_cast<SeenBefore>(chance.whole(0, 2));
        const int year = chance.whole(1420, 1460);
        const int month = chance.whole(1, 11);
        if (i % 4 == 0)
            choices.announced = {{year, month, tabular_civil({year, month, 1}), "council"}};
        const std::size_t announced = choices.announced.size();
        call(
            "hijri_months", [&] { return hijri_months(engine, choices, year, month, year, month + 1); },
            choices.rule, choices.place, zone, choices.before, announced, year, month);
        const Date date = chance.date(1990, 2050);
        call(
            "hijri_date", [&] { return hijri_date(engine, choices, date); }, choices.rule, choices.place,
            zone, choices.before, announced, year, month, date);
        const HijriDate hijri{year, month, chance.whole(1, 30)};
        call(
            "civil_date_of", [&] { return civil_date_of(engine, choices, hijri); }, choices.rule,
            choices.place, zone, choices.before, announced, year, month, hijri);
        const Date any = chance.date(500, 9999);
        call(
            "tabular_hijri", [&] { return tabular_hijri(any); }, any);
        call(
            "tabular_civil", [&] { return tabular_civil(hijri); }, hijri);
    }
}

} // namespace

int main(int, char** arguments) {
    const Engine engine(arguments[1]);
    Chance chance;
    sky_calls(engine, chance);
    event_calls(engine, chance);
    prayer_calls(engine, chance);
    crescent_calls(engine, chance);
    hijri_calls(engine, chance);
}
