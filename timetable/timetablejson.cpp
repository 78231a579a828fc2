// SPDX-License-Identifier: MIT
#include "base/failure.h"
#include "base/version.h"
#include "calendar/civildate.h"
#include "calendar/modday.h"
#include "calendar/modsummer.h"
#include "report/valuetext.h"
#include "timetable/cells.h"
#include "timetable/rowtexts.h"
#include "timetable/sheetnotes.h"
#include "timetable/timetablefiles.h"

#include <nlohmann/json.hpp>

namespace halvane {
namespace {

using Json = nlohmann::ordered_json;

// --- Settings ---------------------------------------------------------------------------------------------

Json number(double value) {
    return require_finite(value, {"a number of the timetable", "رقم في الجدول"});
}

Json twin(const TwinWords& words) {
    return {{"en", words.english}, {"ar", words.arabic}};
}

const char* key_of(SpanKind kind) {
    switch (kind) {
    case SpanKind::month:
        return "month";
    case SpanKind::year:
        return "year";
    case SpanKind::hijri_month:
        return "hijri_month";
    case SpanKind::hijri_year:
        return "hijri_year";
    case SpanKind::dates:
        break;
    }
    return "dates";
}

const char* key_of(HighLatitudeRule rule) {
    switch (rule) {
    case HighLatitudeRule::none:
        return "none";
    case HighLatitudeRule::middle:
        return key_of(TimeSource::middle);
    case HighLatitudeRule::seventh:
        return key_of(TimeSource::seventh);
    case HighLatitudeRule::angle:
        return key_of(TimeSource::angle);
    case HighLatitudeRule::nearest_latitude:
        return key_of(TimeSource::nearest_latitude);
    case HighLatitudeRule::share:
        return key_of(TimeSource::share);
    case HighLatitudeRule::year:
        break;
    }
    return key_of(TimeSource::year);
}

const char* key_of(RuleUse use) {
    switch (use) {
    case RuleUse::missing:
        return "missing";
    case RuleUse::beyond:
        return "beyond";
    case RuleUse::always:
        break;
    }
    return "always";
}

const char* key_of(Rounding rounding) {
    switch (rounding) {
    case Rounding::nearest:
        return "nearest";
    case Rounding::up:
        return "up";
    case Rounding::down:
        break;
    }
    return "down";
}

const char* key_of(DayTime time) {
    return names_of(column_of(time)).key;
}

Json whole(double value) {
    return static_cast<int>(value);
}

Json json_of(const Location& location) {
    return {{"name", as_utf8(location.name)},
            {"latitude", number(latitude_of(location))},
            {"longitude", number(longitude_of(location))},
            {"elevation", number(location.elevation)},
            {"pressure", number(location.pressure)},
            {"temperature", number(location.temperature)},
            {"city_offset", number(location.city_offset)}};
}

Json summer_of(const Preferences& preferences) {
    if (!has_summer_time(preferences))
        return nullptr;
    return {
        {"from",
         {{"month", whole(preferences.summer_from_month)}, {"day", whole(preferences.summer_from_day)}}},
        {"to", {{"month", whole(preferences.summer_to_month)}, {"day", whole(preferences.summer_to_day)}}}};
}

/// The clock of the place: an IANA zone, or hours with the span of a summer time.
Json zone_of(const TimetablePlace& place) {
    if (place.zone)
        return {{"name", place.zone->name()}};
    return {{"hours", number(place.location.zone)}, {"summer_time", summer_of(place.preferences)}};
}

Json json_of(const DaySpan& span) {
    return {{"kind", key_of(span.kind)},
            {"first", iso_date(civil_date(span.first))},
            {"last", iso_date(civil_date(span.last))},
            {"days", span.days()}};
}

std::string clock_of_minutes(int minutes) {
    return clock_text({.day = 0, .seconds = minutes * 60, .offset = 0}, false);
}

Json json_of(const Iqamah& iqamah) {
    switch (iqamah.kind) {
    case Iqamah::Kind::none:
        return nullptr;
    case Iqamah::Kind::fixed:
        return {{"at", clock_of_minutes(iqamah.minutes)}};
    case Iqamah::Kind::after:
        break;
    }
    return {{"after", iqamah.minutes}, {"up_to_five", iqamah.up_to_five}};
}

Json authority_of(const Profile& profile) {
    const Authority* const authority = find_authority(profile.authority);
    if (authority == nullptr)
        return nullptr;
    return {{"key", authority->key},
            {"name", twin(authority->name)},
            {"region", authority->region},
            {"source", authority->source}};
}

Json high_latitude_of(const Profile& profile) {
    Json rule{{"rule", key_of(profile.high_latitude)}, {"use", key_of(profile.rule_use)}};
    if (profile.high_latitude == HighLatitudeRule::nearest_latitude ||
        profile.high_latitude == HighLatitudeRule::share)
        rule["reference_latitude"] = reference_latitude_of(profile);
    return rule;
}

Json json_of(const Profile& profile) {
    Json rules{{"name", as_utf8(profile.name)},
               {"of_preferences", profile.preferences.has_value()},
               {"authority", authority_of(profile)},
               {"fajer_angle", number(profile.fajer_angle)},
               {"isha_angle", number(profile.isha_angle)},
               {"isha_minutes", number(profile.isha_minutes)},
               {"isha_minutes_ramadan", number(profile.isha_minutes_ramadan)},
               {"maghreb_angle", number(profile.maghreb_angle)},
               {"aser", profile.hanafi ? "hanafi" : "standard"},
               {"height_counts", profile.height_counts},
               {"night_until_fajer", profile.night_until_fajer},
               {"imsak_minutes", number(profile.imsak_minutes)},
               {"high_latitude", high_latitude_of(profile)}};
    for (const DayTime time : day_times)
        rules["added"][key_of(time)] = number(profile.added[time]);
    for (const DayTime time : day_times)
        rules["rounding"][key_of(time)] = key_of(profile.rounding[time]);
    for (const DayTime time : prayed_times)
        rules["iqamah"][key_of(time)] = json_of(profile.iqamah[time]);
    Json& jumuah = rules["jumuah"] = Json::array();
    for (const int minutes : profile.jumuah)
        jumuah.push_back(clock_of_minutes(minutes));
    return rules;
}

Json json_of(const TimetableSettings& settings) {
    Json json{{"place", json_of(settings.place.location)},
              {"zone", zone_of(settings.place)},
              {"span", json_of(settings.span)},
              {"profile", json_of(settings.profile)}};
    if (settings.hijri)
        json["hijri_dates"] = twin(settings.hijri->name);
    return json;
}

// --- Columns and rows -------------------------------------------------------------------------------------

/// What a value of a column is.
const char* type_of(TimetableColumn column) {
    switch (column) {
    case TimetableColumn::date:
        return "date";
    case TimetableColumn::hijri:
        return "hijri";
    case TimetableColumn::weekday:
    case TimetableColumn::moon_phase:
        return "text";
    case TimetableColumn::rules:
        return "rules";
    case TimetableColumn::jumuah:
    case TimetableColumn::qiblah_sun:
        return "times";
    default:
        return "time";
    }
}

/// A time; null where there is none without a reason, as an iqamah that the profile has not.
Json json_of(const Timetable& timetable, const TimetableRow& row, const RowTime& time) {
    if (time.clock)
        return {{"clock", clock_text(*time.clock, timetable.to_second)},
                {"instant", instant_text(row.jd, *time.clock)},
                {"source", key_of(time.source)}};
    if (const std::optional<std::string> reason = iso_time(time.missing))
        return {{"clock", nullptr}, {"missing", *reason}};
    return nullptr;
}

Json rules_of(const TimetableRow& row) {
    Json rules = Json::object();
    for (const DayTime time : day_times)
        if (is_by_rule(row.times[time].source))
            rules[key_of(time)] = key_of(row.times[time].source);
    return rules;
}

Json times_of(const Timetable& timetable, const TimetableRow& row, std::span<const RowTime> times) {
    Json list = Json::array();
    for (const RowTime& time : times)
        list.push_back(json_of(timetable, row, time));
    return list;
}

Json json_of(const Timetable& timetable, const TimetableRow& row, TimetableColumn column) {
    switch (column) {
    case TimetableColumn::date:
        return iso_date(row.date);
    case TimetableColumn::weekday:
        return weekday_name(row.jd + 0.5, Language::english);
    case TimetableColumn::hijri:
        return {{"year", whole(row.hijri.year)},
                {"month", whole(row.hijri.month)},
                {"day", whole(row.hijri.day)}};
    case TimetableColumn::moon_phase:
        return key_of(row.moon);
    case TimetableColumn::rules:
        return rules_of(row);
    case TimetableColumn::jumuah:
        return times_of(timetable, row, row.jumuah);
    case TimetableColumn::qiblah_sun:
        return times_of(timetable, row, row.qiblah_sun);
    default:
        return json_of(timetable, row, times_in(row, column).at(0));
    }
}

Json columns_of(const PageSettings& page) {
    Json columns = Json::array();
    for (const TimetableColumn column : page.columns)
        columns.push_back({{"key", names_of(column).key},
                           {"heading", twin(name_of(column, page.names))},
                           {"type", type_of(column)}});
    return columns;
}

/// The rules of high latitudes that made times, and the days on which the clock changes.
Json notes_of(const Timetable& timetable) {
    Json notes{{"rules", Json::array()}, {"clock_changes", Json::array()}};
    for (const TimeSource source : timetable.rules)
        notes["rules"].push_back(
            {{"key", key_of(source)}, {"text", twin(words_of(source, timetable.settings.profile))}});
    for (const TimetableRow& row : timetable.rows)
        if (row.clock_changes)
            notes["clock_changes"].push_back(iso_date(row.date));
    return notes;
}

Json json_of(const ZoneDifference& difference) {
    if (difference.days == 0)
        return nullptr;
    return {{"days", difference.days},
            {"first", iso_date(civil_date(difference.first))},
            {"last", iso_date(civil_date(difference.last))}};
}

} // namespace

std::string json_of(const Timetable& timetable, const PageSettings& page) {
    constexpr std::size_t usual_column = 90;
    std::string text = Json({{"program", "Halvane"},
                             {"version", version},
                             {"task", "timetable"},
                             {"settings", json_of(timetable.settings)},
                             {"zone_difference", json_of(timetable.zone_difference)},
                             {"notes", notes_of(timetable)},
                             {"columns", columns_of(page)}})
                           .dump();
    text.reserve(text.size() + timetable.rows.size() * page.columns.size() * usual_column);
    text.pop_back(); // the object goes on
    text += ",\"rows\":[";
    for (const TimetableRow& row : timetable.rows) {
        Json values = Json::object();
        for (const TimetableColumn column : page.columns)
            values[names_of(column).key] = json_of(timetable, row, column);
        text += &row == timetable.rows.data() ? "\n" : ",\n";
        text += values.dump();
    }
    return text += "\n]}\n";
}

} // namespace halvane
