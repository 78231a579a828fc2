// SPDX-License-Identifier: MIT
#include "ephemeris/ephemeris.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/moonplace.h"
#include "ephemeris/seriessums.h"

#include <array>
#include <cmath>

namespace halvane {
namespace {

constexpr std::size_t coordinates = elp_blocks.size();
constexpr std::size_t secondary_blocks = elp_blocks[0].size() - 1;

constexpr TermFunction function_of(std::size_t coordinate) {
    return coordinate == 2 ? TermFunction::cosine : TermFunction::sine;
}

constexpr auto main_groups() {
    std::array<TermGroup, coordinates> groups{};
    std::size_t first = 0;
    for (std::size_t i = 0; i < coordinates; ++i) {
        const std::size_t rows = padded(elp_blocks[i][0]);
        groups[i] = {function_of(i), first, first, rows, i};
        first += rows;
    }
    return longest_first(groups);
}

constexpr auto secondary_groups() {
    std::array<TermGroup, coordinates * secondary_blocks> groups{};
    std::size_t first = 0;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        const std::size_t rows = padded(elp_blocks[i / secondary_blocks][1 + i % secondary_blocks]);
        groups[i] = {function_of(i / secondary_blocks), first, first, rows, i};
        first += rows;
    }
    return longest_first(groups);
}

EclipticMoon true_moon(const Theory& theory, double t) {
    static constexpr auto main = main_groups();
    static constexpr auto secondary = secondary_groups();
    const MoonSeries& series = theory.elp();
    const SeriesSums& set = series_sums();
    std::array<double, main.size()> m{};
    set.of_lunar({series.main.a0.data(), series.main.a1.data(), series.main.a2.data(), series.main.a3.data(),
                  series.main.a4.data(), t},
                 series.main.amplitude.data(), {main.data(), main.size()}, m.data());
    std::array<double, secondary.size()> s{};
    set.of_linear({series.secondary.a0.data(), series.secondary.a1.data(), t},
                  series.secondary.amplitude.data(), {secondary.data(), secondary.size()}, s.data());
    const double t2 = t * t;
    return {rev360(218.31665 + 481267.88134 * t - 13.268e-4 * t2 + 1.8561e-6 * t2 * t - 1.534e-8 * t2 * t2 +
                   m[0] + 1e-3 * (s[0] + t * s[1] + 1e-4 * t2 * s[2])),
            m[1] + 1e-3 * (s[3] + t * s[4] + 1e-4 * t2 * s[5]),
            385000.57 + m[2] + s[6] + t * s[7] + 1e-4 * t2 * s[8]};
}

/// The tables' own light-time correction.
void correct_for_light_time(double t, EclipticMoon& moon) {
    const double anomaly = (225 + 477198.9 * t) * radians_per_degree;
    moon.longitude += -0.00019524 - 0.00001059 * std::sin(anomaly);
    moon.latitude += -0.00001754 * std::sin((183.3 + 483202 * t) * radians_per_degree);
    moon.distance += 0.0708 * std::cos(anomaly);
}

} // namespace

MoonPlace geocentric_moon_medium(Ephemeris& ephemeris, const Instant& instant) {
    const Orientation& orientation = ephemeris.orientation(instant);
    const double t = orientation.dynamical_days / 36525;
    EclipticMoon moon = true_moon(ephemeris.theory(), t);
    correct_for_light_time(t, moon);
    moon.longitude += orientation.nutation_longitude;
    return geocentric_moon(orientation.frame, moon);
}

MoonPlace moon_medium(Ephemeris& ephemeris, const Instant& instant, const Observer& observer) {
    MoonPlace moon = geocentric_moon_medium(ephemeris, instant);
    add_topocentric(observer, ephemeris.orientation(instant).frame, moon);
    return moon;
}

} // namespace halvane
