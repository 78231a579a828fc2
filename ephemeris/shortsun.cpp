// SPDX-License-Identifier: MIT
#include "ephemeris/sun.h"

#include "ephemeris/ephemeris.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/seriessums.h"
#include "ephemeris/sunplace.h"

#include <array>

namespace halvane {
namespace {

constexpr auto groups = consecutive_groups(term_groups, TermFunction::cosine);

/// Divisors of the groups' sums: the file scales the small groups up.
constexpr std::array<double, term_groups.size()> divisors{1,  10, 10, 1000, 1000, 1000, 1,
                                                          10, 1,  10, 10,   1000, 1000};
constexpr double unit = 1e8;

EarthPlace earth_medium(const Theory& theory, double tau) {
    const SunSeries& series = theory.term();
    std::array<double, groups.size()> s{};
    series_sums().of_rates({series.phase.data(), series.frequency.data(), tau}, series.amplitude.data(),
                           {groups.data(), groups.size()}, s.data());
    for (std::size_t i = 0; i < s.size(); ++i)
        s[i] /= divisors[i];
    return {(s[0] + tau * (s[1] + tau * (s[2] + tau * (s[3] + tau * (s[4] + tau * s[5]))))) / unit,
            (s[6] + tau * s[7]) / unit,
            (s[8] + tau * (s[9] + tau * (s[10] + tau * (s[11] + tau * s[12])))) / unit};
}

constexpr double days_of_millennium = 365250;

EarthPlace earth_at(Ephemeris& ephemeris, double days) {
    Ephemeris::Interpolated* interpolated = ephemeris.interpolated();
    if (interpolated == nullptr || !interpolated->earth)
        return earth_medium(ephemeris.theory(), days / days_of_millennium);
    const auto [longitude, latitude, radius, none] = interpolated->earth->at(days);
    return {longitude * radians_per_degree, latitude * radians_per_degree, radius};
}

} // namespace

InterpolatedSeries::Values earth_medium_values(const Theory& theory, double days) {
    const EarthPlace earth = earth_medium(theory, days / days_of_millennium);
    return {earth.longitude * degrees_per_radian, earth.latitude * degrees_per_radian, earth.radius};
}

SunPlace geocentric_sun_medium(Ephemeris& ephemeris, const Instant& instant) {
    const Orientation& orientation = ephemeris.orientation(instant);
    const EarthPlace earth = earth_at(ephemeris, orientation.dynamical_days);
    return apparent_sun(orientation, earth, -0.0056916111 / earth.radius);
}

SunPlace sun_medium(Ephemeris& ephemeris, const Instant& instant, const Observer& observer) {
    SunPlace sun = geocentric_sun_medium(ephemeris, instant);
    add_topocentric(observer, ephemeris.orientation(instant).frame, sun);
    return sun;
}

} // namespace halvane
