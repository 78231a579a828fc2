// SPDX-License-Identifier: MIT
#include "python/module.h"

#include <cstring>
#include <vector>

namespace halvane_python {
namespace {

using halvane::CircumstanceChoices;
using halvane::Clock;
using halvane::CrescentKind;
using halvane::Date;
using halvane::Engine;
using halvane::MapChoices;
using halvane::Observer;

py::tuple tuple_of(const halvane::CrescentQuantities& q) {
    return py::make_tuple(q.moon_altitude, q.moon_azimuth, q.sun_altitude, q.sun_azimuth, q.elongation,
                          q.phase_angle, q.illuminated_fraction, q.semidiameter, q.width);
}

py::tuple tuple_of(const halvane::CrescentSky& sky) {
    return py::make_tuple(sky.instant, tuple_of(sky.geocentric), tuple_of(sky.topocentric), sky.parallax);
}

py::tuple tuple_of(const halvane::CrescentEvening& evening) {
    return py::make_tuple(static_cast<int>(evening.kind), evening.conjunction, evening.sun_event,
                          evening.moon_event, evening.lag, evening.age, tuple_of(evening.at_sun_event),
                          tuple_of(evening.at_best_time));
}

py::list criteria() {
    py::list list;
    for (const halvane::Criterion& criterion : halvane::criteria()) {
        py::list classes;
        for (const halvane::CriterionClass& row : criterion.classes)
            classes.append(py::make_tuple(row.border, row.words, row.arabic_words));
        list.append(py::make_tuple(py::make_tuple(criterion.key, criterion.name, criterion.arabic_name,
                                                  criterion.source, criterion.measure, criterion.unit),
                                   criterion.of_mornings, criterion.place, py::tuple(classes),
                                   criterion.by_eye));
    }
    return list;
}

py::tuple crescent(const Engine& engine, int kind, const Date& date, const Observer& observer,
                   const Clock& clock, const halvane::CriterionLimits& limits) {
    const halvane::CrescentAnswer answer = unlocked([&] {
        return halvane::crescent(engine, static_cast<CrescentKind>(kind), date, observer, clock, limits);
    });
    py::list verdicts;
    for (const halvane::CrescentVerdict& verdict : answer.verdicts)
        verdicts.append(py::make_tuple(verdict.criterion, verdict.value, verdict.band));
    return py::make_tuple(answer.has_crescent,
                          answer.evening ? py::object(tuple_of(*answer.evening)) : py::object(py::none()),
                          verdicts);
}

py::tuple tuple_of(const halvane::SunPlace& sun) {
    return py::make_tuple(sun.right_ascension, sun.declination, sun.longitude, sun.latitude, sun.distance,
                          sun.equation_of_time);
}

py::tuple tuple_of(const halvane::MoonPlace& moon) {
    return py::make_tuple(moon.right_ascension, moon.declination, moon.longitude, moon.latitude,
                          moon.distance);
}

py::tuple tuple_of(const halvane::SeenPlace& place) {
    return py::make_tuple(place.right_ascension, place.declination, place.longitude, place.latitude,
                          place.altitude, place.azimuth);
}

py::object crescent_circumstances(const Engine& engine, const Date& near, const Observer& observer,
                                  double clock_hours, const CircumstanceChoices& choices) {
    const std::optional<halvane::Circumstances> found = unlocked(
        [&] { return halvane::crescent_circumstances(engine, near, observer, clock_hours, choices); });
    if (!found)
        return py::none();
    return py::make_tuple(found->conjunction, found->date, found->hijri, found->sun_event, found->moon_event,
                          found->lag, found->observed, found->moon_age,
                          py::make_tuple(tuple_of(found->sun.geocentric), tuple_of(found->sun.topocentric)),
                          py::make_tuple(tuple_of(found->moon.geocentric), tuple_of(found->moon.topocentric),
                                         found->moon.parallax, found->moon.semidiameter),
                          tuple_of(found->quantities), found->arcv, found->width, found->q);
}

template <class Value>
py::array_t<Value> rows_of(const halvane::MapGrid& grid, const std::vector<Value>& values) {
    py::array_t<Value> array({static_cast<py::ssize_t>(grid.rows), static_cast<py::ssize_t>(grid.columns)});
    std::copy(values.begin(), values.end(), array.mutable_data());
    return array;
}

py::list crescent_map(const Engine& engine, const MapChoices& choices, const py::object& progress) {
    py::list list;
    for (const halvane::MapGrid& grid : told(progress, [&](halvane::Progress* python) {
             return halvane::crescent_map(engine, choices, python);
         }))
        list.append(py::make_tuple(grid.west, grid.south, grid.step, rows_of(grid, grid.value),
                                   rows_of(grid, grid.map_class), rows_of(grid, grid.lag),
                                   rows_of(grid, grid.age), rows_of(grid, grid.altitude),
                                   rows_of(grid, grid.elongation)));
    return list;
}

template <class Choices>
void add_kind(py::class_<Choices>& choices) {
    choices.def_property(
        "kind", [](const Choices& own) { return static_cast<int>(own.kind); },
        [](Choices& own, int kind) { own.kind = static_cast<CrescentKind>(kind); });
}

void add_circumstance_choices(py::module_& module) {
    py::class_<CircumstanceChoices> choices(module, "CircumstanceChoices");
    choices.def(py::init<>())
        .def_readwrite("geocentric", &CircumstanceChoices::geocentric)
        .def_readwrite("days", &CircumstanceChoices::days)
        .def_property(
            "time", [](const CircumstanceChoices& own) { return static_cast<int>(own.time); },
            [](CircumstanceChoices& own, int time) {
                own.time = static_cast<halvane::ObservationTime>(time);
            })
        .def_readwrite("given_hours", &CircumstanceChoices::given_hours)
        .def_property("horizon", nullptr, [](CircumstanceChoices& own, const halvane::Horizon& horizon) {
            own.horizon = horizon;
        });
    add_kind(choices);
}

void add_map_choices(py::module_& module) {
    py::class_<MapChoices> choices(module, "MapChoices");
    choices.def(py::init<>())
        .def_readwrite("date", &MapChoices::date)
        .def_readwrite("criterion", &MapChoices::criterion)
        .def_property("limits", nullptr,
                      [](MapChoices& own, const halvane::CriterionLimits& limits) { own.limits = limits; })
        .def_readwrite("west", &MapChoices::west)
        .def_readwrite("south", &MapChoices::south)
        .def_readwrite("east", &MapChoices::east)
        .def_readwrite("north", &MapChoices::north)
        .def_readwrite("step", &MapChoices::step);
    add_kind(choices);
}

} // namespace

void add_crescent(py::module_& module) {
    add_circumstance_choices(module);
    add_map_choices(module);
    module.def("criteria", &criteria);
    module.def("crescent", &crescent);
    module.def("crescent_circumstances", &crescent_circumstances);
    module.def("crescent_map", &crescent_map);
}

} // namespace halvane_python
