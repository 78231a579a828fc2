// SPDX-License-Identifier: MIT
#include "ephemeris/sun.h"

#include "ephemeris/ephemeris.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/seriessums.h"
#include "ephemeris/sunplace.h"

#include <array>

namespace halvane {
namespace {

constexpr auto groups = consecutive_groups(termfull_groups, TermFunction::cosine);

EarthPlace earth_high(const Theory& theory, double tau) {
    const SunSeries& series = theory.termfull();
    std::array<double, groups.size()> s{};
    series_sums().of_rates({series.phase.data(), series.frequency.data(), tau}, series.amplitude.data(),
                           {groups.data(), groups.size()}, s.data());
    return {s[0] + tau * (s[1] + tau * (s[2] + tau * (s[3] + tau * (s[4] + tau * s[5])))),
            s[6] + tau * (s[7] + tau * (s[8] + tau * (s[9] + tau * s[10]))),
            s[11] + tau * (s[12] + tau * (s[13] + tau * (s[14] + tau * (s[15] + tau * s[16]))))};
}

} // namespace

SunPlace geocentric_sun_high(Ephemeris& ephemeris, const Instant& instant) {
    const Orientation& orientation = ephemeris.orientation(instant);
    const double tau = orientation.dynamical_days / 365250;
    const EarthPlace earth = earth_high(ephemeris.theory(), tau);
    return apparent_sun(orientation, earth, -0.005775518 * earth.radius * daily_variation(tau));
}

SunPlace sun_high(Ephemeris& ephemeris, const Instant& instant, const Observer& observer) {
    SunPlace sun = geocentric_sun_high(ephemeris, instant);
    add_topocentric(observer, ephemeris.orientation(instant).frame, sun);
    return sun;
}

} // namespace halvane
