// SPDX-License-Identifier: MIT
#include "base/version.h"
#include "calendar/modday.h"
#include "hijri/hijrifiles.h"
#include "hijri/hijritexts.h"
#include "hijri/seenbefore.h"
#include "timetable/cells.h"
#include "timetable/rowtexts.h"

#include <nlohmann/json.hpp>

namespace halvane {
namespace {

using Json = nlohmann::ordered_json;

constexpr int indent = 1;

Json json_of(const HijriPlace& place) {
    return {{"name", as_utf8(place.name)},
            {"latitude", place.latitude},
            {"longitude", place.longitude},
            {"height", place.height},
            {"hours_ahead", place.hours_ahead}};
}

Json number_or_null(const std::optional<double>& number) {
    return number ? Json(*number) : Json();
}

/// Of the criteria that have some, as the kept rule names them.
Json limits_of(const HijriSettings& settings) {
    const std::string_view criterion = settings.criterion->key;
    const UserLimits& user = settings.limits.user;
    if (criterion == danjon_criterion)
        return {{"danjon_limit", settings.limits.danjon_limit}};
    if (criterion != users_criterion)
        return nullptr;
    return {{"lag", number_or_null(user.lag)},
            {"altitude", number_or_null(user.altitude)},
            {"elongation", number_or_null(user.elongation)},
            {"age", number_or_null(user.age)}};
}

Json criterion_of(const HijriSettings& settings, Language language) {
    return {{"key", settings.criterion->key},
            {"name", settings.criterion->name.in(language)},
            {"class", settings.seen_class},
            {"class_name", settings.criterion->bands()[settings.seen_class].text.in(language)},
            {"limits", limits_of(settings)}};
}

Json json_of(const MapWindow& region) {
    return {{"west", region.west}, {"south", region.south}, {"east", region.east}, {"north", region.north}};
}

Json announced_of(const std::vector<AnnouncedStart>& starts) {
    Json list = Json::array();
    for (const AnnouncedStart& start : starts)
        list.push_back({{"year", start.month.year()},
                        {"month", start.month.month()},
                        {"first_day", iso_date(start.first_day)},
                        {"announced_by", as_utf8(start.announced_by)}});
    return list;
}

/// What the rule does not ask for is null.
Json json_of(const HijriSettings& settings, Language language) {
    const HijriRule& rule = *settings.rule;
    Json told{{"key", rule.key},
              {"name", as_utf8(name_of(settings).in(language))},
              {"told", rule.told.in(language)},
              {"source", source_of(settings)},
              {"place", nullptr},
              {"criterion", nullptr},
              {"region", nullptr},
              {"before", nullptr},
              {"announced", announced_of(settings.announced)}};
    if (asks_place(rule, settings.before))
        told["place"] = json_of(settings.place);
    if (asks_criterion(rule))
        told["criterion"] = criterion_of(settings, language);
    if (asks_region(rule)) {
        told["region"] = json_of(settings.region);
        told["before"] = key_of(settings.before);
    }
    return told;
}

const char* key_of(MonthMargin::Of of) {
    switch (of) {
    case MonthMargin::Of::lag:
        return "lag";
    case MonthMargin::Of::age:
        return "age";
    case MonthMargin::Of::measure:
        break;
    }
    return "measure";
}

Json json_of(const std::optional<MonthMargin>& margin) {
    if (!margin)
        return nullptr;
    return {{"of", key_of(margin->of)},
            {"value", margin->value},
            {"uncertainty", margin->uncertainty},
            {"unit", margin->unit}};
}

Json json_of(const HijriMonth& month, Language language) {
    Json notes = Json::array();
    for (const TwinWords& note : notes_of(month))
        notes.push_back(as_utf8(note.in(language)));
    return {{"year", month.number.year()},
            {"month", month.number.month()},
            {"name", hijri_month_name(month.number.month(), language)},
            {"first_day", iso_date(month.first_day)},
            {"days", month.days},
            {"margin", json_of(month.margin)},
            {"may_differ", month.may_differ()},
            {"announced_by", month.has(MonthNote::announced) ? Json(as_utf8(month.announced_by)) : Json()},
            {"note_keys", note_keys(month)},
            {"notes", notes}};
}

Json json_of(const MonthDay& day, Language language) {
    Json feasts = Json::array();
    for (const Feast* const feast : day.feasts)
        feasts.push_back(
            {{"key", feast->key}, {"name", feast->name.in(language)}, {"night_before", feast->of_the_night}});
    return {{"hijri", iso_hijri(day.hijri)},
            {"date", iso_date(day.day_number)},
            {"weekday", weekday_name(day.day_number, language)},
            {"phase", day.phase ? Json(key_of(moon_of(*day.phase))) : Json()},
            {"white_day", day.is_white_day()},
            {"feasts", feasts}};
}

Json head_of(const char* task) {
    return {{"program", "Halvane"}, {"version", version}, {"task", task}};
}

std::string text_of(const Json& json) {
    return json.dump(indent, ' ', false, Json::error_handler_t::replace) + "\n";
}

} // namespace

std::string json_of(const HijriYears& years, Language language) {
    Json json = head_of("hijri");
    json["first_year"] = years.first;
    json["last_year"] = years.last;
    Json& rules = json["rules"] = Json::array();
    for (std::size_t rule = 0; rule < years.rules.size(); ++rule) {
        Json told = json_of(years.rules[rule].settings, language);
        Json& months = told["months"] = Json::array();
        for (std::size_t month = 0; month < years.months(); ++month) {
            months.push_back(json_of(years.rules[rule].months[month], language));
            months.back()["difference"] = years.difference(rule, month);
        }
        rules.push_back(std::move(told));
    }
    return text_of(json);
}

std::string json_of(const MonthSheet& sheet, Language language) {
    Json json = head_of("hijri-month");
    json["rule"] = json_of(sheet.settings, language);
    json["month"] = json_of(sheet.month, language);
    const Location& location = sheet.place.location;
    json["place"] = {{"name", as_utf8(location.name)},
                     {"latitude", latitude_of(location)},
                     {"longitude", longitude_of(location)}};
    Json& days = json["days"] = Json::array();
    for (const MonthDay& day : sheet.days)
        days.push_back(json_of(day, language));
    return text_of(json);
}

std::string json_of(const HijriDay& day, const HijriSettings& settings, Language language) {
    Json json = head_of("hijri-date");
    json["date"] = iso_date(day.day_number);
    json["weekday"] = weekday_name(day.day_number, language);
    json["hijri"] = iso_hijri(day.hijri);
    json["month"] = json_of(day.month, language);
    json["rule"] = json_of(settings, language);
    return text_of(json);
}

std::string rule_json(Language language) {
    Json json = head_of("hijri-rules");
    Json& rules = json["rules"] = Json::array();
    for (const HijriRule& rule : hijri_rules()) {
        Json asks = Json::array();
        for (const AskedThing& thing : asked_things(rule))
            asks.push_back(thing.key);
        rules.push_back({{"key", rule.key},
                         {"name", rule.name.in(language)},
                         {"told", rule.told.in(language)},
                         {"source", rule.source},
                         {"asks", asks}});
    }
    return text_of(json);
}

} // namespace halvane
