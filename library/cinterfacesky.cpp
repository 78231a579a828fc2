// SPDX-License-Identifier: MIT
#include "halvane/sky.h"
#include "library/cinterface.h"

namespace halvane::v1 {
namespace {

static_assert(HALVANE_COMPLETE == static_cast<int>(Accuracy::complete));
static_assert(HALVANE_MEDIUM == static_cast<int>(Accuracy::medium));
static_assert(HALVANE_LOW == static_cast<int>(Accuracy::low));
static_assert(HALVANE_FAST == static_cast<int>(Accuracy::fast));

Accuracy accuracy_of(int accuracy) {
    return static_cast<Accuracy>(accuracy); // the functions refuse what is none
}

halvane_geocentric_sun record_of(const SunPlace& sun) {
    return {0, same<halvane_sun_place>(sun)};
}

halvane_geocentric_moon record_of(const MoonPlace& moon) {
    return {0, same<halvane_moon_place>(moon)};
}

halvane_seen_sun record_of(const SeenSun& sun) {
    return {0, same<halvane_sun_place>(sun.geocentric), same<halvane_seen_place>(sun.topocentric)};
}

halvane_seen_moon record_of(const SeenMoon& moon) {
    return {0, same<halvane_moon_place>(moon.geocentric), same<halvane_seen_place>(moon.topocentric),
            moon.parallax, moon.semidiameter};
}

/// What `place_of` gives for each instant.
template <class Record, class PlaceOf>
void set_each(const halvane_instant* instants, std::size_t instant_count, const FilledArray<Record>& places,
              const PlaceOf& place_of) {
    if (instant_count > 0)
        required(instants, "instants");
    places.require_room(instant_count);
    for (std::size_t i = 0; i < instant_count; ++i)
        places.set(i, record_of(place_of(instant_of(instants[i]))));
    places.set_count(instant_count);
}

} // namespace
} // namespace halvane::v1

using namespace halvane::v1;

halvane_status halvane_sun(const halvane_engine* engine, halvane_instant instant, int accuracy,
                           halvane_geocentric_sun* sun) {
    return called([&] {
        const Filled filled(sun, "sun");
        filled.set(
            record_of(halvane::v1::sun(engine_of(engine), instant_of(instant), accuracy_of(accuracy))));
    });
}

halvane_status halvane_moon(const halvane_engine* engine, halvane_instant instant, int accuracy,
                            halvane_geocentric_moon* moon) {
    return called([&] {
        const Filled filled(moon, "moon");
        filled.set(
            record_of(halvane::v1::moon(engine_of(engine), instant_of(instant), accuracy_of(accuracy))));
    });
}

halvane_status halvane_sun_seen(const halvane_engine* engine, halvane_instant instant,
                                halvane_observer observer, int accuracy, halvane_seen_sun* sun) {
    return called([&] {
        const Filled filled(sun, "sun");
        filled.set(record_of(sun_seen(engine_of(engine), instant_of(instant), same<Observer>(observer),
                                      accuracy_of(accuracy))));
    });
}

halvane_status halvane_moon_seen(const halvane_engine* engine, halvane_instant instant,
                                 halvane_observer observer, int accuracy, halvane_seen_moon* moon) {
    return called([&] {
        const Filled filled(moon, "moon");
        filled.set(record_of(moon_seen(engine_of(engine), instant_of(instant), same<Observer>(observer),
                                       accuracy_of(accuracy))));
    });
}

halvane_status halvane_suns(const halvane_engine* engine, const halvane_instant* instants,
                            size_t instant_count, int accuracy, halvane_geocentric_sun* suns, size_t capacity,
                            size_t element_size, size_t* count) {
    return called([&] {
        const FilledArray places(suns, capacity, element_size, count, "suns");
        const Engine& own = engine_of(engine);
        set_each(instants, instant_count, places, [&](const Instant& instant) {
            return halvane::v1::sun(own, instant, accuracy_of(accuracy));
        });
    });
}

halvane_status halvane_moons(const halvane_engine* engine, const halvane_instant* instants,
                             size_t instant_count, int accuracy, halvane_geocentric_moon* moons,
                             size_t capacity, size_t element_size, size_t* count) {
    return called([&] {
        const FilledArray places(moons, capacity, element_size, count, "moons");
        const Engine& own = engine_of(engine);
        set_each(instants, instant_count, places, [&](const Instant& instant) {
            return halvane::v1::moon(own, instant, accuracy_of(accuracy));
        });
    });
}

halvane_status halvane_suns_seen(const halvane_engine* engine, const halvane_instant* instants,
                                 size_t instant_count, halvane_observer observer, int accuracy,
                                 halvane_seen_sun* suns, size_t capacity, size_t element_size,
                                 size_t* count) {
    return called([&] {
        const FilledArray places(suns, capacity, element_size, count, "suns");
        const Engine& own = engine_of(engine);
        set_each(instants, instant_count, places, [&](const Instant& instant) {
            return sun_seen(own, instant, same<Observer>(observer), accuracy_of(accuracy));
        });
    });
}

halvane_status halvane_moons_seen(const halvane_engine* engine, const halvane_instant* instants,
                                  size_t instant_count, halvane_observer observer, int accuracy,
                                  halvane_seen_moon* moons, size_t capacity, size_t element_size,
                                  size_t* count) {
    return called([&] {
        const FilledArray places(moons, capacity, element_size, count, "moons");
        const Engine& own = engine_of(engine);
        set_each(instants, instant_count, places, [&](const Instant& instant) {
            return moon_seen(own, instant, same<Observer>(observer), accuracy_of(accuracy));
        });
    });
}

halvane_status halvane_moon_light(const halvane_engine* engine, halvane_instant instant,
                                  halvane_light* light) {
    return called([&] {
        const Filled filled(light, "light");
        const MoonLight lit = moon_light(engine_of(engine), instant_of(instant));
        filled.set({0, lit.elongation, lit.phase_angle, lit.fraction});
    });
}

halvane_status halvane_refracted(double altitude, double* seen_altitude) {
    return called([&] { required(seen_altitude, "seen_altitude") = refracted(altitude); });
}
