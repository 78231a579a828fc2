// SPDX-License-Identifier: MIT
#include "halvane/crescent.h"

#include "base/numberformat.h"
#include "calendar/civildate.h"
#include "crescent/circumstances.h"
#include "crescent/conjunction.h"
#include "crescent/crescentevening.h"
#include "crescent/criteriacatalogue.h"
#include "crescent/shortanswer.h"
#include "finemap/finemap.h"
#include "library/convert.h"
#include "library/criterionvalues.h"
#include "library/guarded.h"
#include "library/parts.h"
#include "library/skyvalues.h"
#include "library/toldprogress.h"

#include <algorithm>
#include <cmath>

namespace halvane::v1 {
namespace {

constexpr double hours_per_day = 24;

CrescentQuantities value_of(const halvane::CrescentQuantities& q) {
    return {q.moon_altitude, q.moon_azimuth,         q.sun_altitude, q.sun_azimuth, q.elongation,
            q.phase_angle,   q.illuminated_fraction, q.semidiameter, q.width};
}

CrescentSky value_of(const halvane::CrescentSky& sky) {
    return {Instant::of_ut1(sky.universal), value_of(sky.geocentric), value_of(sky.topocentric),
            sky.parallax};
}

CrescentEvening value_of(const halvane::CrescentEvening& evening, CrescentKind kind) {
    CrescentEvening value;
    value.kind = kind;
    value.conjunction = Instant::of_ut1(evening.conjunction);
    value.sun_event = Instant::of_ut1(evening.sun_event);
    value.moon_event = Instant::of_ut1(evening.moon_event);
    value.lag = evening.lag();
    value.age = evening.age(evening.sun_event);
    value.at_sun_event = value_of(evening.at_sun_event);
    value.at_best_time = value_of(evening.at_best_time);
    return value;
}

CrescentVerdict value_of(const halvane::CrescentVerdict& verdict) {
    CrescentVerdict value;
    value.criterion = verdict.criterion->key;
    if (verdict.value) {
        value.value = *verdict.value;
        value.band = class_of_value(*verdict.criterion, *verdict.value);
    }
    return value;
}

Criterion value_of(const CataloguedCriterion& criterion) {
    Criterion value;
    value.key = criterion.key;
    value.name = criterion.name.english;
    value.arabic_name = criterion.name.arabic;
    value.source = criterion.source;
    value.measure = criterion.measure_name.english;
    value.unit = criterion.unit;
    value.of_mornings = criterion.of_mornings;
    if (criterion.place)
        value.place = Observer{criterion.place->latitude, criterion.place->longitude, 0};
    for (const halvane::CriterionClass& band : criterion.bands())
        value.classes.push_back({band.border, band.text.english, band.text.arabic});
    value.by_eye = criterion.by_eye;
    return value;
}

halvane::CrescentKind engine_kind(CrescentKind kind) {
    require_within("A kind of crescent", static_cast<int>(kind), 0, 1);
    return kind == CrescentKind::new_crescent ? halvane::CrescentKind::new_crescent
                                              : halvane::CrescentKind::old_crescent;
}

/// How far a clock is ahead of Universal Time at a Julian day in UT1                                [h]
double hours_ahead_at(const Clock& clock, double universal) {
    constexpr double seconds_per_hour = 3600;
    const std::optional<TimeZone> zone = zone_of(clock);
    return zone ? zone->offset_at(universal) / seconds_per_hour : clock.hours_ahead({});
}

/// The choices as the stored record holds them.
CrescentSettings stored_choices(const Date& near, const CircumstanceChoices& choices) {
    require_within("The days from the conjunction", choices.days, 0, 2);
    require_within("A time of observation", static_cast<int>(choices.time), 0,
                   static_cast<int>(ObservationTime::given));
    require_within("The hours of a clock", choices.given_hours, 0, hours_per_day);
    CrescentSettings settings;
    settings.day = std::to_string(near.day);
    settings.month = std::to_string(near.month);
    settings.year = std::to_string(near.year);
    settings.gregorian = true;
    settings.hijri = false;
    settings.new_crescent = engine_kind(choices.kind) == halvane::CrescentKind::new_crescent;
    settings.geocentric = choices.geocentric;
    settings.day_of_conjunction = choices.days == 0;
    settings.one_day = choices.days == 1;
    settings.two_days = choices.days == 2;
    settings.at_sun = choices.time == ObservationTime::sun_event;
    settings.at_moon = choices.time == ObservationTime::moon_event;
    settings.at_best_time = choices.time == ObservationTime::best_time;
    settings.at_user_time = choices.time == ObservationTime::given;
    settings.user_hour = plain_number(choices.given_hours);
    settings.user_minute = "0";
    return settings;
}

Circumstances value_of(Ephemeris& ephemeris, const halvane::Observer& observer,
                       const halvane::Circumstances& found, double clock_hours) {
    const halvane::Instant observed = halvane::Instant::of_ut1(found.universal);
    Circumstances value;
    value.conjunction = Instant::of_ut1(found.conjunction - clock_hours / hours_per_day);
    value.date = civil_date(found.day);
    value.hijri = hijri_value(found.hijri);
    value.sun_event = found.sun_event;
    value.moon_event = found.moon_event;
    value.lag = found.lag;
    value.observed = Instant::of_ut1(found.universal);
    value.moon_age = found.moon_age;
    value.sun = seen_value(ephemeris, observed, observer, found.sun);
    value.moon = seen_value(ephemeris, observed, observer, found.moon);
    value.quantities = value_of(found.quantities);
    value.arcv = found.criterion.arcv;
    value.width = found.criterion.width;
    value.q = found.criterion.value;
    return value;
}

FineMapSettings map_settings(Ephemeris& ephemeris, const MapChoices& choices) {
    require_within("A map's western edge", choices.west, -180, std::nextafter(180.0, 0.0));
    require_within("A map's width", choices.east - choices.west, choices.step, 360);
    require_within("A map's southern edge", choices.south, most_southern, most_northern);
    require_within("A map's northern edge", choices.north, most_southern, most_northern);
    require_within("A map's step", choices.step, 0.05, 30);
    require_within("A map's height", choices.north - choices.south, choices.step,
                   most_northern - most_southern);
    constexpr double noon = 0.5;
    FineMapSettings settings;
    settings.kind = engine_kind(choices.kind);
    settings.day = checked_julian_day(choices.date);
    settings.conjunction = geocentric_conjunction(ephemeris, settings.day + noon);
    settings.criterion = &criterion_of_key(choices.criterion);
    settings.limits = engine_limits(choices.limits);
    settings.window = {choices.west, choices.south, choices.east, choices.north};
    settings.step = choices.step;
    if (const std::optional<TwinWords> refused = refused_map(settings))
        raise_bad_argument(refused->english);
    return settings;
}

MapGrid value_of(const MapPart& part) {
    MapGrid grid{part.west, part.south, part.step, part.columns, part.rows, {}, {}, {}, {}, {}, {}};
    const auto fill = [&part](auto& values, auto number_of) {
        values.reserve(part.nodes.size());
        for (const MapNode& node : part.nodes)
            values.push_back(number_of(node));
    };
    fill(grid.value, [](const MapNode& node) { return node.value; });
    fill(grid.map_class, [](const MapNode& node) { return static_cast<std::uint8_t>(node.map_class); });
    fill(grid.lag, [](const MapNode& node) { return node.lag; });
    fill(grid.age, [](const MapNode& node) { return node.age; });
    fill(grid.altitude, [](const MapNode& node) { return node.altitude; });
    fill(grid.elongation, [](const MapNode& node) { return node.elongation; });
    return grid;
}

static_assert(map_conjunction_to_come == static_cast<int>(MapClass::conjunction_to_come));
static_assert(map_moon_goes_first == static_cast<int>(MapClass::moon_goes_first));
static_assert(map_no_answer == static_cast<int>(MapClass::no_answer));
static_assert(map_no_event == static_cast<int>(MapClass::no_event));

} // namespace

std::vector<Criterion> criteria() {
    std::vector<Criterion> list;
    for (const CataloguedCriterion& criterion : catalogued_criteria())
        list.push_back(value_of(criterion));
    return list;
}

const CataloguedCriterion& criterion_of_key(const std::string& key) {
    const CataloguedCriterion* criterion = catalogued_criterion(key);
    if (criterion == nullptr)
        raise_unknown_key("criterion", key, catalogued_criteria());
    return *criterion;
}

CriteriaSettings engine_limits(const CriterionLimits& limits) {
    const auto set = [](const char* what, double value, double least, double most) -> std::optional<double> {
        if (std::isnan(value))
            return std::nullopt;
        require_within(what, value, least, most);
        return value;
    };
    require_within("The Danjon limit", limits.danjon_elongation, 0, 180);
    return {limits.danjon_elongation,
            {set("A least lag", limits.least_lag, -1440, 1440),
             set("A least altitude", limits.least_altitude, -90, 90),
             set("A least elongation", limits.least_elongation, 0, 180),
             set("A least age", limits.least_age, -1000, 1000)}};
}

CrescentAnswer crescent(const Engine& engine, CrescentKind kind, const Date& date, const Observer& observer,
                        const Clock& clock, const CriterionLimits& limits) {
    return guarded([&] {
        constexpr double noon = 0.5;
        Ephemeris& ephemeris = ephemeris_of(engine);
        const halvane::Observer own = engine_observer(observer);
        const double jd = checked_julian_day(date);
        const double conjunction =
            geocentric_conjunction(ephemeris, jd + noon - clock.hours_ahead(date) / hours_per_day);
        const EventOfDate sun =
            sun_event_of_date(ephemeris, own, engine_kind(kind), jd,
                              [&clock](double universal) { return hours_ahead_at(clock, universal); });
        const ShortAnswer found =
            short_answer(ephemeris, own, engine_kind(kind), jd, sun, conjunction, engine_limits(limits));
        CrescentAnswer answer;
        answer.has_crescent = found.has_crescent();
        if (found.evening)
            answer.evening = value_of(*found.evening, kind);
        for (const halvane::CrescentVerdict& verdict : found.verdicts)
            answer.verdicts.push_back(value_of(verdict));
        return answer;
    });
}

std::optional<Circumstances> crescent_circumstances(const Engine& engine, const Date& near,
                                                    const Observer& observer, double clock_hours,
                                                    const CircumstanceChoices& choices) {
    return guarded([&]() -> std::optional<Circumstances> {
        checked_julian_day(near); // for its checks
        require_within("The hours of a clock from Universal Time", clock_hours, -24, 24);
        engine_horizon(choices.horizon, observer); // for its checks
        CrescentRecords records;
        records.settings = stored_choices(near, choices);
        records.preferences.elevation_setting = choices.horizon.height_counts ? "1" : "0";
        records.location = location_at(observer, clock_hours, choices.horizon);
        Ephemeris& ephemeris = ephemeris_of(engine);
        DayEvents events;
        const Conjunction conjunction = find_conjunction(ephemeris, records);
        const auto found = halvane::crescent_circumstances(ephemeris, records, conjunction, events);
        if (!found)
            return std::nullopt;
        return value_of(ephemeris, engine_observer(observer), *found, clock_hours);
    });
}

std::vector<MapGrid> crescent_map(const Engine& engine, const MapChoices& choices, Progress* progress) {
    return guarded([&] {
        ToldProgress told(progress);
        const FineMapSettings settings = map_settings(ephemeris_of(engine), choices);
        const std::optional<std::vector<MapPart>> parts = judged_grid(engine.parts().theory, settings, told);
        if (!parts)
            raise_cancelled();
        std::vector<MapGrid> grids;
        std::transform(parts->begin(), parts->end(), std::back_inserter(grids),
                       [](const MapPart& part) { return value_of(part); });
        return grids;
    });
}

} // namespace halvane::v1
