// SPDX-License-Identifier: MIT
#include "halvane/sky.h"

#include "ephemeris/coordinates.h"
#include "ephemeris/illumination.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/moon.h"
#include "ephemeris/sun.h"
#include "library/convert.h"
#include "library/guarded.h"
#include "library/parts.h"
#include "library/skyvalues.h"

namespace halvane::v1 {
namespace {

[[noreturn]] void raise_unknown_accuracy() {
    raise_bad_argument("There is no such accuracy here.");
}

halvane::SunPlace geocentric_sun(Ephemeris& ephemeris, const halvane::Instant& instant, Accuracy accuracy) {
    switch (accuracy) {
    case Accuracy::complete:
        return geocentric_sun_high(ephemeris, instant);
    case Accuracy::medium:
        return geocentric_sun_medium(ephemeris, instant);
    case Accuracy::low:
        return geocentric_sun_low(ephemeris, instant);
    case Accuracy::fast:
        raise_bad_argument("A fast place is that of an observer.");
    }
    raise_unknown_accuracy();
}

halvane::SunPlace seen_sun(Ephemeris& ephemeris, const halvane::Instant& instant,
                           const halvane::Observer& observer, Accuracy accuracy) {
    switch (accuracy) {
    case Accuracy::complete:
        return sun_high(ephemeris, instant, observer);
    case Accuracy::medium:
        return sun_medium(ephemeris, instant, observer);
    case Accuracy::low:
        return sun_low(ephemeris, instant, observer);
    case Accuracy::fast:
        return sun_fast(ephemeris, instant, observer);
    }
    raise_unknown_accuracy();
}

halvane::MoonPlace geocentric_moon(Ephemeris& ephemeris, const halvane::Instant& instant, Accuracy accuracy) {
    switch (accuracy) {
    case Accuracy::complete:
    case Accuracy::medium:
        return geocentric_moon_medium(ephemeris, instant);
    case Accuracy::low:
        return geocentric_moon_low(ephemeris, instant);
    case Accuracy::fast:
        raise_bad_argument("A fast place is that of an observer.");
    }
    raise_unknown_accuracy();
}

halvane::MoonPlace seen_moon(Ephemeris& ephemeris, const halvane::Instant& instant,
                             const halvane::Observer& observer, Accuracy accuracy) {
    switch (accuracy) {
    case Accuracy::complete:
    case Accuracy::medium:
        return moon_medium(ephemeris, instant, observer);
    case Accuracy::low:
        return moon_low(ephemeris, instant, observer);
    case Accuracy::fast:
        return moon_fast(ephemeris, instant, observer);
    }
    raise_unknown_accuracy();
}

SunPlace value_of(const halvane::SunPlace& sun) {
    return {sun.right_ascension, sun.declination, sun.longitude,
            sun.latitude,        sun.radius,      sun.equation_of_time};
}

MoonPlace value_of(const halvane::MoonPlace& moon) {
    return {moon.right_ascension, moon.declination, rev360(moon.longitude), moon.latitude, moon.distance};
}

/// In     place  with its topocentric members
template <class Place>
SeenPlace seen_place(Ephemeris& ephemeris, const halvane::Instant& instant, const halvane::Observer& observer,
                     const Place& place) {
    SeenPlace seen{place.topocentric_right_ascension,
                   place.topocentric_declination,
                   place.topocentric_longitude,
                   place.topocentric_latitude,
                   0,
                   0};
    altazm_of(ephemeris, instant, observer, seen.right_ascension, seen.declination, seen.altitude,
              seen.azimuth);
    return seen;
}

/// Everything that one body's functions need of an instant.
struct SunOf {
    using Seen = SeenSun;
    static SunPlace geocentric(Ephemeris& ephemeris, const Instant& instant, Accuracy accuracy) {
        return value_of(geocentric_sun(ephemeris, engine_instant(instant), accuracy));
    }
    static SeenSun seen(Ephemeris& ephemeris, const Instant& instant, const halvane::Observer& observer,
                        Accuracy accuracy) {
        const halvane::Instant moment = engine_instant(instant);
        const halvane::SunPlace sun = seen_sun(ephemeris, moment, observer, accuracy);
        return seen_value(ephemeris, moment, observer, sun);
    }
};

struct MoonOf {
    using Seen = SeenMoon;
    static MoonPlace geocentric(Ephemeris& ephemeris, const Instant& instant, Accuracy accuracy) {
        return value_of(geocentric_moon(ephemeris, engine_instant(instant), accuracy));
    }
    static SeenMoon seen(Ephemeris& ephemeris, const Instant& instant, const halvane::Observer& observer,
                         Accuracy accuracy) {
        const halvane::Instant moment = engine_instant(instant);
        const halvane::MoonPlace moon = seen_moon(ephemeris, moment, observer, accuracy);
        return seen_value(ephemeris, moment, observer, moon);
    }
};

template <class Of>
auto one(const Engine& engine, const Instant& instant, Accuracy accuracy) {
    return guarded([&] { return Of::geocentric(ephemeris_of(engine), instant, accuracy); });
}

template <class Of>
auto one(const Engine& engine, const Instant& instant, const Observer& observer, Accuracy accuracy) {
    return guarded(
        [&] { return Of::seen(ephemeris_of(engine), instant, engine_observer(observer), accuracy); });
}

template <class Of>
auto many(const Engine& engine, std::span<const Instant> instants, Accuracy accuracy) {
    return guarded([&] {
        Ephemeris& ephemeris = ephemeris_of(engine);
        std::vector<decltype(Of::geocentric(ephemeris, instants[0], accuracy))> places;
        places.reserve(instants.size());
        for (const Instant& instant : instants)
            places.push_back(Of::geocentric(ephemeris, instant, accuracy));
        return places;
    });
}

template <class Of>
auto many(const Engine& engine, std::span<const Instant> instants, const Observer& observer,
          Accuracy accuracy) {
    return guarded([&] {
        Ephemeris& ephemeris = ephemeris_of(engine);
        const halvane::Observer own = engine_observer(observer);
        std::vector<typename Of::Seen> places;
        places.reserve(instants.size());
        for (const Instant& instant : instants)
            places.push_back(Of::seen(ephemeris, instant, own, accuracy));
        return places;
    });
}

} // namespace

SeenSun seen_value(Ephemeris& ephemeris, const halvane::Instant& instant, const halvane::Observer& observer,
                   const halvane::SunPlace& sun) {
    return {value_of(sun), seen_place(ephemeris, instant, observer, sun)};
}

SeenMoon seen_value(Ephemeris& ephemeris, const halvane::Instant& instant, const halvane::Observer& observer,
                    const halvane::MoonPlace& moon) {
    return {value_of(moon), seen_place(ephemeris, instant, observer, moon), moon.parallax,
            moon.topocentric_semidiameter};
}

SunPlace sun(const Engine& engine, const Instant& instant, Accuracy accuracy) {
    return one<SunOf>(engine, instant, accuracy);
}

MoonPlace moon(const Engine& engine, const Instant& instant, Accuracy accuracy) {
    return one<MoonOf>(engine, instant, accuracy);
}

SeenSun sun_seen(const Engine& engine, const Instant& instant, const Observer& observer, Accuracy accuracy) {
    return one<SunOf>(engine, instant, observer, accuracy);
}

SeenMoon moon_seen(const Engine& engine, const Instant& instant, const Observer& observer,
                   Accuracy accuracy) {
    return one<MoonOf>(engine, instant, observer, accuracy);
}

std::vector<SunPlace> suns(const Engine& engine, std::span<const Instant> instants, Accuracy accuracy) {
    return many<SunOf>(engine, instants, accuracy);
}

std::vector<MoonPlace> moons(const Engine& engine, std::span<const Instant> instants, Accuracy accuracy) {
    return many<MoonOf>(engine, instants, accuracy);
}

std::vector<SeenSun> suns_seen(const Engine& engine, std::span<const Instant> instants,
                               const Observer& observer, Accuracy accuracy) {
    return many<SunOf>(engine, instants, observer, accuracy);
}

std::vector<SeenMoon> moons_seen(const Engine& engine, std::span<const Instant> instants,
                                 const Observer& observer, Accuracy accuracy) {
    return many<MoonOf>(engine, instants, observer, accuracy);
}

MoonLight moon_light(const Engine& engine, const Instant& instant) {
    return guarded([&] {
        Ephemeris& ephemeris = ephemeris_of(engine);
        const halvane::Instant moment = engine_instant(instant);
        const halvane::SunPlace sun = geocentric_sun_high(ephemeris, moment);
        const halvane::MoonPlace moon = geocentric_moon_medium(ephemeris, moment);
        const Illumination light =
            moon_illumination({moon.right_ascension, moon.declination},
                              {sun.right_ascension, sun.declination}, sun.radius, moon.distance);
        return MoonLight{light.elongation, light.phase_angle, light.fraction};
    });
}

double refracted(double altitude) {
    require_within("An altitude", altitude, -4, 90);
    return halvane::refracted(altitude);
}

} // namespace halvane::v1
