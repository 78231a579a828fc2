// SPDX-License-Identifier: MIT
#include "halvane/crescent.h"
#include "halvane/error.h"
#include "library/ccriteria.h"
#include "library/cinterface.h"

#include <algorithm>

struct halvane_map {
    std::vector<halvane::v1::MapGrid> grids;
};

namespace halvane::v1 {
namespace {

static_assert(HALVANE_NEW_CRESCENT == static_cast<int>(CrescentKind::new_crescent));
static_assert(HALVANE_OLD_CRESCENT == static_cast<int>(CrescentKind::old_crescent));
static_assert(HALVANE_AT_SUN_EVENT == static_cast<int>(ObservationTime::sun_event));
static_assert(HALVANE_AT_MOON_EVENT == static_cast<int>(ObservationTime::moon_event));
static_assert(HALVANE_AT_BEST_TIME == static_cast<int>(ObservationTime::best_time));
static_assert(HALVANE_AT_GIVEN_TIME == static_cast<int>(ObservationTime::given));
static_assert(HALVANE_MAP_CONJUNCTION_TO_COME == map_conjunction_to_come);
static_assert(HALVANE_MAP_MOON_GOES_FIRST == map_moon_goes_first);
static_assert(HALVANE_MAP_NO_ANSWER == map_no_answer);
static_assert(HALVANE_MAP_NO_EVENT == map_no_event);

CrescentKind kind_of(int kind) {
    return word_of("A kind of crescent", kind, CrescentKind::old_crescent);
}

/// The criteria with their classes, as the interface shows them.
struct CriterionList {
    std::vector<Criterion> criteria;
    std::vector<std::vector<halvane_criterion_class>> classes;

    std::size_t size() const { return criteria.size(); }
};

const CriterionList& criterion_list() {
    static const CriterionList made = [] {
        CriterionList list;
        list.criteria = criteria();
        for (const Criterion& criterion : list.criteria) {
            auto& classes = list.classes.emplace_back();
            for (const CriterionClass& band : criterion.classes)
                classes.push_back({band.border, band.words.c_str(), band.arabic_words.c_str()});
        }
        return list;
    }();
    return made;
}

halvane_criterion record_of(const Criterion& criterion, const std::vector<halvane_criterion_class>& classes) {
    halvane_criterion record{};
    record.key = criterion.key.c_str();
    record.name = criterion.name.c_str();
    record.arabic_name = criterion.arabic_name.c_str();
    record.source = criterion.source.c_str();
    record.measure = criterion.measure.c_str();
    record.unit = criterion.unit.c_str();
    record.of_mornings = criterion.of_mornings;
    record.has_place = criterion.place.has_value();
    record.place = same<halvane_observer>(criterion.place.value_or(Observer{}));
    record.classes = classes.data();
    record.class_count = classes.size();
    record.by_eye = criterion.by_eye;
    return record;
}

halvane_verdict record_of(const CrescentVerdict& verdict) {
    return {0, lasting_criterion_key(verdict.criterion), verdict.value,
            verdict.band ? static_cast<int>(*verdict.band) : -1};
}

halvane_crescent_evening value_of(const CrescentEvening& evening) {
    return {static_cast<int>(evening.kind),
            same<halvane_instant>(evening.conjunction),
            same<halvane_instant>(evening.sun_event),
            same<halvane_instant>(evening.moon_event),
            evening.lag,
            evening.age,
            same<halvane_crescent_sky>(evening.at_sun_event),
            same<halvane_crescent_sky>(evening.at_best_time)};
}

halvane_circumstance_choices record_of(const CircumstanceChoices& choices) {
    return {0,
            static_cast<int>(choices.kind),
            choices.geocentric,
            choices.days,
            static_cast<int>(choices.time),
            choices.given_hours,
            horizon_value(choices.horizon)};
}

CircumstanceChoices choices_of(const halvane_circumstance_choices* given) {
    const halvane_circumstance_choices record =
        read_record(given, "choices", [] { return record_of(CircumstanceChoices{}); });
    return {kind_of(record.kind), record.geocentric != 0,
            record.days,          word_of("A time of observation", record.time, ObservationTime::given),
            record.given_hours,   horizon_of(record.horizon)};
}

halvane_circumstances record_of(const Circumstances& found) {
    halvane_circumstances record{};
    record.conjunction = same<halvane_instant>(found.conjunction);
    record.date = same<halvane_date>(found.date);
    record.hijri = same<halvane_hijri_date>(found.hijri);
    record.sun_event = found.sun_event;
    record.moon_event = found.moon_event;
    record.lag = found.lag;
    record.observed = same<halvane_instant>(found.observed);
    record.moon_age = found.moon_age;
    record.sun_geocentric = same<halvane_sun_place>(found.sun.geocentric);
    record.sun_topocentric = same<halvane_seen_place>(found.sun.topocentric);
    record.moon_geocentric = same<halvane_moon_place>(found.moon.geocentric);
    record.moon_topocentric = same<halvane_seen_place>(found.moon.topocentric);
    record.moon_parallax = found.moon.parallax;
    record.moon_semidiameter = found.moon.semidiameter;
    record.quantities = same<halvane_crescent_quantities>(found.quantities);
    record.arcv = found.arcv;
    record.width = found.width;
    record.q = found.q;
    return record;
}

/// The choices of the C++ interface, whose text of a key lasts.
halvane_map_choices default_map_choices() {
    const MapChoices choices;
    return {0,
            static_cast<int>(choices.kind),
            same<halvane_date>(choices.date),
            lasting_criterion_key(choices.criterion),
            nullptr,
            choices.west,
            choices.south,
            choices.east,
            choices.north,
            choices.step};
}

MapChoices choices_of(const halvane_map_choices* given) {
    const halvane_map_choices record = read_record(given, "choices", default_map_choices);
    return {kind_of(record.kind),
            same<Date>(record.date),
            text_of(record.criterion, "criterion"),
            limits_of(record.limits),
            record.west,
            record.south,
            record.east,
            record.north,
            record.step};
}

halvane_map_grid record_of(const MapGrid& grid) {
    return {0,
            grid.west,
            grid.south,
            grid.step,
            grid.columns,
            grid.rows,
            grid.value.data(),
            grid.map_class.data(),
            grid.lag.data(),
            grid.age.data(),
            grid.altitude.data(),
            grid.elongation.data()};
}

halvane_criterion_limits record_of(const CriterionLimits& limits) {
    return {0,
            limits.danjon_elongation,
            limits.least_lag,
            limits.least_altitude,
            limits.least_elongation,
            limits.least_age};
}

} // namespace

const char* lasting_criterion_key(const std::string& key) {
    const std::vector<Criterion>& list = criterion_list().criteria;
    const auto found =
        std::find_if(list.begin(), list.end(), [&key](const Criterion& row) { return row.key == key; });
    return found == list.end() ? "" : found->key.c_str();
}

CriterionLimits limits_of(const halvane_criterion_limits* given) {
    const halvane_criterion_limits record =
        read_record(given, "limits", [] { return record_of(CriterionLimits{}); });
    return {record.danjon_elongation, record.least_lag, record.least_altitude, record.least_elongation,
            record.least_age};
}

} // namespace halvane::v1

using namespace halvane::v1;

size_t halvane_criterion_count(void) {
    return count_of(criterion_list);
}

halvane_status halvane_criterion_at(size_t index, halvane_criterion* criterion) {
    return called([&] {
        const Filled filled(criterion, "criterion");
        const CriterionList& list = criterion_list();
        filled.set(record_of(element_of(list.criteria, index), element_of(list.classes, index)));
    });
}

halvane_status halvane_default_criterion_limits(halvane_criterion_limits* limits) {
    return called([&] { Filled(limits, "limits").set(record_of(CriterionLimits{})); });
}

halvane_status halvane_crescent(const halvane_engine* engine, int kind, halvane_date date,
                                halvane_observer observer, const halvane_clock* clock,
                                const halvane_criterion_limits* limits, halvane_crescent_answer* answer,
                                halvane_verdict* verdicts, size_t capacity, size_t element_size,
                                size_t* count) {
    return called([&] {
        const Filled filled(answer, "answer");
        const FilledArray filled_verdicts(verdicts, capacity, element_size, count, "verdicts");
        const CrescentAnswer found = crescent(engine_of(engine), kind_of(kind), same<Date>(date),
                                              same<Observer>(observer), clock_of(clock), limits_of(limits));
        halvane_crescent_answer record{};
        record.has_crescent = found.has_crescent;
        record.has_evening = found.evening.has_value();
        if (found.evening)
            record.evening = value_of(*found.evening);
        filled_verdicts.set_all(found.verdicts,
                                [](const CrescentVerdict& verdict) { return record_of(verdict); });
        filled.set(std::move(record)); // NOLINT(performance-move-const-arg): it is given away
    });
}

halvane_status halvane_default_circumstance_choices(halvane_circumstance_choices* choices) {
    return called([&] { Filled(choices, "choices").set(record_of(CircumstanceChoices{})); });
}

halvane_status halvane_crescent_circumstances(const halvane_engine* engine, halvane_date near_date,
                                              halvane_observer observer, double clock_hours,
                                              const halvane_circumstance_choices* choices,
                                              halvane_circumstances* circumstances) {
    return called([&] {
        const Filled filled(circumstances, "circumstances");
        const std::optional<Circumstances> found =
            crescent_circumstances(engine_of(engine), same<Date>(near_date), same<Observer>(observer),
                                   clock_hours, choices_of(choices));
        if (!found)
            throw Error(ErrorKind::no_value, "The Sun or the Moon has no event on the chosen day.");
        filled.set(record_of(*found));
    });
}

halvane_status halvane_default_map_choices(halvane_map_choices* choices) {
    return called([&] { Filled(choices, "choices").set(default_map_choices()); });
}

halvane_status halvane_crescent_map(const halvane_engine* engine, const halvane_map_choices* choices,
                                    halvane_progress progress, void* context, halvane_map** map) {
    return called([&] {
        required(map, "map") = nullptr;
        CalledProgress told(progress, context);
        *map = new halvane_map{crescent_map(engine_of(engine), choices_of(choices), told.pointer())};
    });
}

size_t halvane_map_grid_count(const halvane_map* map) {
    return map == nullptr ? 0 : map->grids.size();
}

halvane_status halvane_map_grid_at(const halvane_map* map, size_t index, halvane_map_grid* grid) {
    return called([&] {
        const Filled filled(grid, "grid");
        filled.set(record_of(element_of(required(map, "map").grids, index)));
    });
}

void halvane_map_free(halvane_map* map) {
    delete map;
}
