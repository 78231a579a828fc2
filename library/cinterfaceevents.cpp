// SPDX-License-Identifier: MIT
#include "halvane/events.h"
#include "halvane/qiblah.h"
#include "library/cinterface.h"

#include <optional>

namespace halvane::v1 {
namespace {

static_assert(HALVANE_NOT_MISSING == static_cast<int>(Missing::no));
static_assert(HALVANE_NO_EVENT == static_cast<int>(Missing::no_event));
static_assert(HALVANE_UP == static_cast<int>(Missing::up));
static_assert(HALVANE_DOWN == static_cast<int>(Missing::down));
static_assert(HALVANE_BRIGHT == static_cast<int>(Missing::bright));
static_assert(HALVANE_DARK == static_cast<int>(Missing::dark));
static_assert(HALVANE_SUN == static_cast<int>(Body::sun));
static_assert(HALVANE_MOON == static_cast<int>(Body::moon));
static_assert(HALVANE_NEW_MOON == static_cast<int>(Phase::new_moon));
static_assert(HALVANE_FIRST_QUARTER == static_cast<int>(Phase::first_quarter));
static_assert(HALVANE_FULL_MOON == static_cast<int>(Phase::full_moon));
static_assert(HALVANE_LAST_QUARTER == static_cast<int>(Phase::last_quarter));

halvane_clock_time time_of(const ClockTime& time) {
    return same<halvane_clock_time>(time);
}

halvane_body_day record_of(const BodyDay& day) {
    return {0, time_of(day.rise), time_of(day.transit), time_of(day.set)};
}

/// Nothing for a null pointer.
std::optional<Observer> observer_of(const halvane_observer* observer) {
    if (observer == nullptr)
        return std::nullopt;
    return same<Observer>(*observer);
}

const Observer* pointer_to(const std::optional<Observer>& observer) {
    return observer ? &*observer : nullptr;
}

} // namespace
} // namespace halvane::v1

using namespace halvane::v1;

halvane_status halvane_sun_day(const halvane_engine* engine, halvane_date date, halvane_observer observer,
                               const halvane_clock* clock, const halvane_horizon* horizon,
                               halvane_body_day* day) {
    return called([&] {
        const Filled filled(day, "day");
        filled.set(record_of(sun_day(engine_of(engine), same<Date>(date), same<Observer>(observer),
                                     clock_of(clock), horizon_of(horizon))));
    });
}

halvane_status halvane_moon_day(const halvane_engine* engine, halvane_date date, halvane_observer observer,
                                const halvane_clock* clock, const halvane_horizon* horizon,
                                halvane_body_day* day) {
    return called([&] {
        const Filled filled(day, "day");
        filled.set(record_of(moon_day(engine_of(engine), same<Date>(date), same<Observer>(observer),
                                      clock_of(clock), horizon_of(horizon))));
    });
}

halvane_status halvane_twilight(const halvane_engine* engine, halvane_date date, halvane_observer observer,
                                const halvane_clock* clock, double depression, const halvane_horizon* horizon,
                                halvane_twilight_times* times) {
    return called([&] {
        const Filled filled(times, "times");
        const Twilight found = twilight(engine_of(engine), same<Date>(date), same<Observer>(observer),
                                        clock_of(clock), depression, horizon_of(horizon));
        filled.set({0, time_of(found.morning), time_of(found.evening)});
    });
}

halvane_status halvane_altitude_passages(const halvane_engine* engine, int body, double altitude,
                                         halvane_instant from, halvane_instant to, halvane_observer observer,
                                         halvane_altitude_passage* passages, size_t capacity,
                                         size_t element_size, size_t* count) {
    return called([&] {
        const FilledArray filled(passages, capacity, element_size, count, "passages");
        const auto found = altitude_passages(engine_of(engine), word_of("A body", body, Body::moon), altitude,
                                             instant_of(from), instant_of(to), same<Observer>(observer));
        filled.set_all(found, [](const AltitudePassage& passage) {
            return halvane_altitude_passage{0, same<halvane_instant>(passage.instant), passage.rising};
        });
    });
}

halvane_status halvane_moon_phases(const halvane_engine* engine, halvane_instant from, halvane_instant to,
                                   const halvane_observer* observer, halvane_phase_moment* moments,
                                   size_t capacity, size_t element_size, size_t* count) {
    return called([&] {
        const FilledArray filled(moments, capacity, element_size, count, "moments");
        const std::optional<Observer> own = observer_of(observer);
        const auto found = moon_phases(engine_of(engine), instant_of(from), instant_of(to), pointer_to(own));
        filled.set_all(found, [](const PhaseMoment& moment) {
            return halvane_phase_moment{0, static_cast<int>(moment.phase), moment.lunation,
                                        same<halvane_instant>(moment.instant)};
        });
    });
}

halvane_status halvane_conjunction(const halvane_engine* engine, halvane_instant near_moment,
                                   const halvane_observer* observer, halvane_instant* instant) {
    return called([&] {
        halvane_instant& found = required(instant, "instant");
        const std::optional<Observer> own = observer_of(observer);
        found =
            same<halvane_instant>(conjunction(engine_of(engine), instant_of(near_moment), pointer_to(own)));
    });
}

halvane_status halvane_qiblah_direction(double latitude, double longitude, double* direction) {
    return called([&] { required(direction, "direction") = qiblah_direction(latitude, longitude); });
}

halvane_status halvane_sun_in_direction(const halvane_engine* engine, halvane_date date,
                                        halvane_observer observer, const halvane_clock* clock, double azimuth,
                                        int shadow, const halvane_horizon* horizon,
                                        halvane_direction_moments* moments) {
    return called([&] {
        const Filled filled(moments, "moments");
        const SunInDirection found =
            sun_in_direction(engine_of(engine), same<Date>(date), same<Observer>(observer), clock_of(clock),
                             azimuth, shadow != 0, horizon_of(horizon));
        filled.set({0, time_of(found.first), time_of(found.second), found.first_below_horizon,
                    found.second_below_horizon});
    });
}
