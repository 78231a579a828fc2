// SPDX-License-Identifier: MIT
#include "halvane/prayer.h"

#include "base/progress.h"
#include "library/convert.h"
#include "library/guarded.h"
#include "library/parts.h"
#include "library/toldprogress.h"
#include "prayer/prayerday.h"
#include "timetable/authorities.h"
#include "timetable/manyplaces.h"
#include "timetable/profile.h"
#include "timetable/profilekeys.h"
#include "timetable/timetable.h"

#include <algorithm>

namespace halvane::v1 {
namespace {

constexpr double most_minutes_earlier = 1440; // a day
constexpr double most_city = 10000;           // a quarter of the Earth [km]

void require_minutes(const char* what, double minutes) {
    require_within(what, minutes, -most_minutes_earlier, most_minutes_earlier);
}

/// The rules as the stored preferences have them.
Preferences preferences_of(const ReportRules& rules) {
    require_within("A depression at Fajer", rules.fajer_angle, 0, 90);
    require_within("A depression at Isha", rules.isha_angle, 0, 90);
    require_minutes("The minutes before Fajer", rules.fajer_earlier);
    require_minutes("The minutes after Dhohur", rules.dhohur_later);
    require_minutes("The minutes after Aser", rules.aser_later);
    require_minutes("The minutes after Maghreb", rules.maghreb_later);
    require_within("The kilometres to the east", rules.city, -most_city, most_city);
    Preferences preferences;
    preferences.fajer_angle = rules.fajer_angle;
    preferences.isha_angle = rules.isha_angle;
    preferences.subtract_fajer = rules.fajer_earlier;
    preferences.add_dhohur = rules.dhohur_later;
    preferences.add_asr = rules.aser_later;
    preferences.add_maghreb = rules.maghreb_later;
    preferences.asr_rule = rules.hanafi ? "2" : "1";
    preferences.elevation_setting = rules.horizon.height_counts ? "1" : "0";
    preferences.clock_precision = "0";
    preferences.high_latitude = rules.high_latitude ? 1 : 0;
    return preferences;
}

template <class To, class From>
std::array<To, prayers> each_of(const OfSix<From>& six, const auto& change) {
    std::array<To, prayers> changed;
    std::transform(six.values.begin(), six.values.end(), changed.begin(), change);
    return changed;
}

// The interface's words and the engine's stand in one order.
static_assert(static_cast<int>(HighLatitudeRule::year) == static_cast<int>(halvane::HighLatitudeRule::year));
static_assert(static_cast<int>(RuleUse::always) == static_cast<int>(halvane::RuleUse::always));
static_assert(static_cast<int>(Rounding::down) == static_cast<int>(halvane::Rounding::down));
static_assert(static_cast<int>(TimeSource::year) == static_cast<int>(halvane::TimeSource::year));
static_assert(static_cast<int>(Iqamah::Kind::after) == static_cast<int>(halvane::Iqamah::Kind::after));

/// Error  raises Error (bad_argument) for a number that is none of the words.
template <class To, class From>
To word(const char* what, From value, From last) {
    require_within(what, static_cast<int>(value), 0, static_cast<int>(last));
    return static_cast<To>(value);
}

halvane::Iqamah engine_iqamah(const Iqamah& iqamah) {
    constexpr int last_minute_of_day = 1439;
    const int most = iqamah.kind == Iqamah::Kind::fixed ? last_minute_of_day : most_iqamah_minutes;
    require_within("The minutes of an iqamah", iqamah.minutes, 0, most);
    return {word<halvane::Iqamah::Kind>("The kind of an iqamah", iqamah.kind, Iqamah::Kind::after),
            iqamah.minutes, iqamah.up_to_five};
}

void require_angle(const char* what, double angle) {
    require_within(what, angle, least_angle, greatest_angle);
}

Profile profile_of(const TimetableRules& rules) {
    require_angle("A depression at Fajer", rules.fajer_angle);
    require_within("The minutes of Isha", rules.isha_minutes, 0, most_isha_minutes);
    require_within("The minutes of Isha in Ramadan", rules.isha_minutes_ramadan, 0, most_isha_minutes);
    if (rules.isha_minutes == 0)
        require_angle("A depression at Isha", rules.isha_angle);
    require_within("A depression at Maghreb", rules.maghreb_angle, 0, greatest_angle);
    require_within("A reference latitude", rules.reference_latitude, 0, greatest_reference);
    require_within("The minutes of imsak", rules.imsak_minutes, 0, most_imsak_minutes);
    Profile profile;
    profile.fajer_angle = rules.fajer_angle;
    profile.isha_angle = rules.isha_angle;
    profile.isha_minutes = rules.isha_minutes;
    profile.isha_minutes_ramadan = rules.isha_minutes_ramadan;
    profile.maghreb_angle = rules.maghreb_angle;
    profile.hanafi = rules.hanafi;
    profile.height_counts = rules.height_counts;
    for (std::size_t i = 0; i < prayers; ++i) {
        require_within("Added minutes", rules.added[i], -most_added_minutes, most_added_minutes);
        profile.added.values[i] = rules.added[i];
        profile.rounding.values[i] = word<halvane::Rounding>("A rounding", rules.rounding[i], Rounding::down);
        profile.iqamah.values[i] = engine_iqamah(rules.iqamah[i]);
    }
    profile.high_latitude = word<halvane::HighLatitudeRule>("A rule of high latitudes", rules.high_latitude,
                                                            HighLatitudeRule::year);
    profile.rule_use = word<halvane::RuleUse>("The use of a rule", rules.rule_use, RuleUse::always);
    profile.reference_latitude = rules.reference_latitude;
    profile.night_until_fajer = rules.night_until_fajer;
    profile.imsak_minutes = rules.imsak_minutes;
    profile.seconds = rules.seconds;
    if (rules.jumuah.size() > most_jumuah || !std::is_sorted(rules.jumuah.begin(), rules.jumuah.end()))
        raise_bad_argument("Jumuah has up to " + std::to_string(most_jumuah) + " clocks, rising.");
    for (const int minutes : rules.jumuah)
        require_within("A clock of Jumuah", minutes, 0, 1439);
    profile.jumuah = rules.jumuah;
    // The Moon and the Sun in the Qiblah are asked for by functions of their own.
    profile.page.columns = {TimetableColumn::date};
    if (const std::optional<TwinWords> refused = refused_profile(profile))
        raise_bad_argument(refused->english);
    return profile;
}

TimetableRules rules_of(const Profile& profile) {
    TimetableRules rules;
    rules.fajer_angle = profile.fajer_angle;
    rules.isha_angle = profile.isha_angle;
    rules.isha_minutes = profile.isha_minutes;
    rules.isha_minutes_ramadan = profile.isha_minutes_ramadan;
    rules.maghreb_angle = profile.maghreb_angle;
    rules.hanafi = profile.hanafi;
    rules.height_counts = profile.height_counts;
    rules.added = profile.added.values;
    rules.rounding =
        each_of<Rounding>(profile.rounding, [](auto value) { return static_cast<Rounding>(value); });
    rules.high_latitude = static_cast<HighLatitudeRule>(profile.high_latitude);
    rules.rule_use = static_cast<RuleUse>(profile.rule_use);
    rules.reference_latitude = profile.reference_latitude;
    rules.night_until_fajer = profile.night_until_fajer;
    rules.imsak_minutes = profile.imsak_minutes;
    rules.seconds = profile.seconds;
    return rules;
}

TimetableTime time_value(const TimetableRow& row, const RowTime& time) {
    TimetableTime value;
    value.source = static_cast<TimeSource>(time.source);
    if (!time.clock) {
        value.missing = missing_of(time.missing);
        return value;
    }
    value.missing = Missing::no;
    value.day = time.clock->day;
    value.seconds = time.clock->seconds;
    value.offset = time.clock->offset;
    value.unix_seconds = utc_seconds(row, *time.clock);
    return value;
}

TimetableDay day_value(const TimetableRow& row) {
    const auto value = [&row](const RowTime& time) { return time_value(row, time); };
    TimetableDay day;
    day.date = {static_cast<int>(row.date.year), static_cast<int>(row.date.month),
                static_cast<int>(row.date.day)};
    day.hijri = hijri_value(row.hijri);
    day.weekday = row.weekday;
    day.times = each_of<TimetableTime>(row.times, value);
    day.aser_standard = value(row.aser_standard);
    day.aser_hanafi = value(row.aser_hanafi);
    day.imsak = value(row.imsak);
    day.midnight = value(row.midnight);
    day.last_third = value(row.last_third);
    day.iqamah = each_of<TimetableTime>(row.iqamah, value);
    std::transform(row.jumuah.begin(), row.jumuah.end(), std::back_inserter(day.jumuah), value);
    day.offset = row.offset;
    day.clock_changes = row.clock_changes;
    return day;
}

DaySpan span_of(const Date& first, const Date& last) {
    const DaySpan span{SpanKind::dates, checked_julian_day(first), checked_julian_day(last)};
    if (span.last < span.first)
        raise_bad_argument("The last date lies before the first.");
    if (span.last - span.first >= most_days)
        raise_bad_argument("A timetable has " + std::to_string(most_days) + " days at most.");
    return span;
}

TimetableSettings settings_of(const Observer& observer, const Clock& clock, const Profile& profile,
                              const DaySpan& span, const Date& first) {
    TimetableSettings settings;
    settings.place.location = location_at(observer, clock.hours_ahead(first));
    settings.place.zone = zone_of(clock);
    settings.place.preferences.summer_time = "0";
    settings.profile = profile;
    settings.span = span;
    return settings;
}

std::vector<TimetableDay> days_of(Ephemeris& ephemeris, const TimetableSettings& settings,
                                  halvane::Progress& progress) {
    const std::optional<Timetable> made = make_timetable(ephemeris, settings, progress);
    if (!made)
        raise_cancelled();
    std::vector<TimetableDay> days;
    days.reserve(made->rows.size());
    std::transform(made->rows.begin(), made->rows.end(), std::back_inserter(days), day_value);
    return days;
}

} // namespace

PrayerTimes prayer_times(const Engine& engine, const Date& date, const Observer& observer, const Clock& clock,
                         const ReportRules& rules) {
    return guarded([&] {
        const double jd = checked_julian_day(date);
        engine_horizon(rules.horizon, observer); // for its checks
        Location location = location_at(observer, clock.hours_ahead(date), rules.horizon);
        location.city_offset = rules.city;
        const PrayerSettings settings = prayer_settings(preferences_of(rules), location, DayMode::report);
        const PrayerDay day = prayer_day(ephemeris_of(engine), settings, jd, 0);
        if (day.refused)
            throw Error(ErrorKind::no_value, "The method of high latitudes does not reach so far north.");
        PrayerTimes times;
        std::transform(six_times.begin(), six_times.end(), times.times.begin(),
                       [&day](auto time) { return clock_time(day.times.*time); });
        return times;
    });
}

std::vector<Authority> authorities() {
    std::vector<Authority> list;
    for (const halvane::Authority& authority : halvane::authorities())
        list.push_back({authority.key, authority.name.english, authority.name.arabic, authority.region,
                        authority.source});
    return list;
}

TimetableRules rules_of_authority(const std::string& key) {
    return guarded([&] {
        const halvane::Authority* authority = find_authority(key);
        if (authority == nullptr)
            raise_unknown_key("authority", key, authorities());
        return rules_of(authority_profile(*authority));
    });
}

std::vector<TimetableDay> timetable(const Engine& engine, const Date& first, const Date& last,
                                    const Observer& observer, const Clock& clock, const TimetableRules& rules,
                                    Progress* progress) {
    return guarded([&] {
        const TimetableSettings settings =
            settings_of(observer, clock, profile_of(rules), span_of(first, last), first);
        ToldProgress told(progress);
        Ephemeris ephemeris(engine.parts().theory);
        return days_of(ephemeris, settings, told);
    });
}

std::vector<std::vector<TimetableDay>> timetables(const Engine& engine, const Date& first, const Date& last,
                                                  std::span<const TimetablePlace> places,
                                                  const TimetableRules& rules, Progress* progress) {
    return guarded([&] {
        const Profile profile = profile_of(rules);
        const DaySpan span = span_of(first, last);
        ToldProgress told(progress);
        Ephemeris ephemeris(engine.parts().theory, series_use(places.size()));
        std::vector<std::vector<TimetableDay>> all;
        all.reserve(places.size());
        for (const TimetablePlace& place : places) {
            const double done = static_cast<double>(all.size());
            const double whole = static_cast<double>(places.size());
            StageProgress of_place(told, 100 * done / whole, 100 * (done + 1) / whole);
            all.push_back(
                days_of(ephemeris, settings_of(place.observer, place.clock, profile, span, first), of_place));
        }
        return all;
    });
}

} // namespace halvane::v1
