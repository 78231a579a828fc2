// SPDX-License-Identifier: MIT
#include "python/module.h"

#include <span>
#include <vector>

namespace halvane_python {
namespace {

using halvane::Accuracy;
using halvane::Engine;
using halvane::Instant;
using halvane::Observer;
using halvane::TimeScale;

// The numbers of a value, in the order of its members.
auto numbers_of(const halvane::SunPlace& sun) {
    return std::array{sun.right_ascension, sun.declination, sun.longitude,
                      sun.latitude,        sun.distance,    sun.equation_of_time};
}

auto numbers_of(const halvane::MoonPlace& moon) {
    return std::array{moon.right_ascension, moon.declination, moon.longitude, moon.latitude, moon.distance};
}

auto numbers_of(const halvane::SeenPlace& place) {
    return std::array{place.right_ascension, place.declination, place.longitude,
                      place.latitude,        place.altitude,    place.azimuth};
}

auto numbers_of(const halvane::MoonLight& light) {
    return std::array{light.elongation, light.phase_angle, light.fraction};
}

template <class T, std::size_t A, std::size_t B>
std::array<T, A + B> joined(const std::array<T, A>& a, const std::array<T, B>& b) {
    std::array<T, A + B> both;
    std::copy(b.begin(), b.end(), std::copy(a.begin(), a.end(), both.begin()));
    return both;
}

auto numbers_of(const halvane::SeenSun& seen) {
    return joined(numbers_of(seen.geocentric), numbers_of(seen.topocentric));
}

auto numbers_of(const halvane::SeenMoon& seen) {
    return joined(joined(numbers_of(seen.geocentric), numbers_of(seen.topocentric)),
                  std::array{seen.parallax, seen.semidiameter});
}

/// The columns of a function's values, one value for each Julian day.
/// In     function  of a span of instants, gives the vector of their values
template <class Function>
py::list columns(const Numbers& days, int scale, const Function& function) {
    const auto size = static_cast<std::size_t>(days.size());
    const double* from = days.data();
    using Value = typename std::invoke_result_t<Function, std::span<const Instant>>::value_type;
    constexpr std::size_t count = std::tuple_size_v<decltype(numbers_of(std::declval<Value>()))>;
    std::vector<Column> made;
    for (std::size_t i = 0; i < count; ++i)
        made.emplace_back(size);
    constexpr std::size_t block = 1024; // its values lie in the processor's cache when they are spread
    std::vector<Instant> instants;
    instants.reserve(block);
    const auto fill = [&](std::size_t begin, std::size_t end) {
        instants.clear();
        for (std::size_t i = begin; i < end; ++i)
            instants.push_back({from[i], static_cast<TimeScale>(scale)});
        const auto values = function(std::span<const Instant>(instants));
        for (std::size_t i = 0; i < values.size(); ++i) {
            const auto numbers = numbers_of(values[i]);
            for (std::size_t j = 0; j < count; ++j)
                made[j].values[begin + i] = numbers[j];
        }
    };
    in_parts(size, [&](std::size_t begin, std::size_t end) {
        for (; begin < end; begin += block)
            fill(begin, std::min(begin + block, end));
    });
    py::list arrays;
    for (const Column& column : made)
        arrays.append(column.array);
    return arrays;
}

template <auto Function>
auto one(const Engine& engine, const Instant& instant, int accuracy) {
    return numbers_of(unlocked([&] { return Function(engine, instant, static_cast<Accuracy>(accuracy)); }));
}

template <auto Function>
auto one_seen(const Engine& engine, const Instant& instant, const Observer& observer, int accuracy) {
    return numbers_of(
        unlocked([&] { return Function(engine, instant, observer, static_cast<Accuracy>(accuracy)); }));
}

template <auto Function>
py::list many(const Engine& engine, const Numbers& days, int scale, int accuracy) {
    return columns(days, scale, [&](std::span<const Instant> instants) {
        return Function(engine, instants, static_cast<Accuracy>(accuracy));
    });
}

template <auto Function>
py::list many_seen(const Engine& engine, const Numbers& days, int scale, const Observer& observer,
                   int accuracy) {
    return columns(days, scale, [&](std::span<const Instant> instants) {
        return Function(engine, instants, observer, static_cast<Accuracy>(accuracy));
    });
}

auto moon_light(const Engine& engine, const Instant& instant) {
    return numbers_of(unlocked([&] { return halvane::moon_light(engine, instant); }));
}

py::list moon_lights(const Engine& engine, const Numbers& days, int scale) {
    return columns(days, scale, [&](std::span<const Instant> instants) {
        std::vector<halvane::MoonLight> lights;
        lights.reserve(instants.size());
        for (const Instant& instant : instants)
            lights.push_back(halvane::moon_light(engine, instant));
        return lights;
    });
}

py::array_t<double> qiblah_directions(const Numbers& latitudes, const Numbers& longitudes) {
    const auto size = static_cast<std::size_t>(latitudes.size());
    const double* latitude = latitudes.data();
    const double* longitude = longitudes.data();
    Column directions(size);
    in_parts(size, [&](std::size_t begin, std::size_t end) {
        std::transform(latitude + begin, latitude + end, longitude + begin, directions.values + begin,
                       halvane::qiblah_direction);
    });
    return directions.array;
}

} // namespace

void add_sky(py::module_& module) {
    module.def("sun", &one<&halvane::sun>);
    module.def("moon", &one<&halvane::moon>);
    module.def("sun_seen", &one_seen<&halvane::sun_seen>);
    module.def("moon_seen", &one_seen<&halvane::moon_seen>);
    module.def("suns", &many<&halvane::suns>);
    module.def("moons", &many<&halvane::moons>);
    module.def("suns_seen", &many_seen<&halvane::suns_seen>);
    module.def("moons_seen", &many_seen<&halvane::moons_seen>);
    module.def("moon_light", &moon_light);
    module.def("moon_lights", &moon_lights);
    module.def("refracted", &halvane::refracted);
    module.def("refracteds", [](const Numbers& altitudes) { return each(altitudes, halvane::refracted); });
    module.def("qiblah_direction", &halvane::qiblah_direction);
    module.def("qiblah_directions", &qiblah_directions);
}

} // namespace halvane_python
