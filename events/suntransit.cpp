// SPDX-License-Identifier: MIT
#include "events/suntransit.h"

#include "base/failure.h"

#include <cmath>

namespace halvane {
namespace {

double hours_of_transit(const TransitClock& clock, double equation_of_time) {
    return clock.noon + (clock.meridian_minutes - equation_of_time) / 60;
}

} // namespace

SunTransit find_sun_transit(Ephemeris& ephemeris, double jd, const TransitClock& clock) {
    constexpr double tolerance = 6.94444e-05; // a quarter of a second
    const Instant noon = Instant::of_ut1(jd + 0.5 - clock.ahead / 24);
    double t = hours_of_transit(clock, geocentric_sun_low(ephemeris, noon).equation_of_time);
    SearchGuard guard({"the Sun's transit", "عبور الشمس"});
    for (;;) {
        const Instant instant = Instant::of_ut1(jd - (clock.ahead - t) / 24);
        const SunPlace sun = geocentric_sun_medium(ephemeris, instant);
        const double next = guard.check(hours_of_transit(clock, sun.equation_of_time));
        const double change = std::fabs(t - next);
        t = next;
        if (change <= tolerance)
            return {t, instant, sun};
    }
}

} // namespace halvane
