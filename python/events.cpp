// SPDX-License-Identifier: MIT
#include "python/module.h"

namespace halvane_python {
namespace {

using halvane::Clock;
using halvane::Date;
using halvane::Engine;
using halvane::Horizon;
using halvane::Instant;
using halvane::Observer;

template <auto Function>
py::tuple body_day(const Engine& engine, const Date& date, const Observer& observer, const Clock& clock,
                   const Horizon& horizon) {
    const halvane::BodyDay day = unlocked([&] { return Function(engine, date, observer, clock, horizon); });
    return py::make_tuple(day.rise, day.transit, day.set);
}

py::tuple twilight(const Engine& engine, const Date& date, const Observer& observer, const Clock& clock,
                   double depression, const Horizon& horizon) {
    const halvane::Twilight found =
        unlocked([&] { return halvane::twilight(engine, date, observer, clock, depression, horizon); });
    return py::make_tuple(found.morning, found.evening);
}

py::list altitude_passages(const Engine& engine, int body, double altitude, const Instant& from,
                           const Instant& to, const Observer& observer) {
    py::list list;
    for (const halvane::AltitudePassage& passage : unlocked([&] {
             return halvane::altitude_passages(engine, static_cast<halvane::Body>(body), altitude, from, to,
                                               observer);
         }))
        list.append(py::make_tuple(passage.instant, passage.rising));
    return list;
}

const Observer* pointer_to(const std::optional<Observer>& observer) {
    return observer ? &*observer : nullptr;
}

py::list moon_phases(const Engine& engine, const Instant& from, const Instant& to,
                     const std::optional<Observer>& observer) {
    py::list list;
    for (const halvane::PhaseMoment& moment :
         unlocked([&] { return halvane::moon_phases(engine, from, to, pointer_to(observer)); }))
        list.append(py::make_tuple(static_cast<int>(moment.phase), moment.lunation, moment.instant));
    return list;
}

Instant conjunction(const Engine& engine, const Instant& near, const std::optional<Observer>& observer) {
    return unlocked([&] { return halvane::conjunction(engine, near, pointer_to(observer)); });
}

py::tuple sun_in_direction(const Engine& engine, const Date& date, const Observer& observer,
                           const Clock& clock, double azimuth, bool shadow, const Horizon& horizon) {
    const halvane::SunInDirection found = unlocked(
        [&] { return halvane::sun_in_direction(engine, date, observer, clock, azimuth, shadow, horizon); });
    return py::make_tuple(found.first, found.second, found.first_below_horizon, found.second_below_horizon);
}

} // namespace

void add_events(py::module_& module) {
    module.def("sun_day", &body_day<&halvane::sun_day>);
    module.def("moon_day", &body_day<&halvane::moon_day>);
    module.def("twilight", &twilight);
    module.def("altitude_passages", &altitude_passages);
    module.def("moon_phases", &moon_phases);
    module.def("conjunction", &conjunction);
    module.def("sun_in_direction", &sun_in_direction);
}

} // namespace halvane_python
