#include "ephemeris/sun.h"

#include "ephemeris/earthorientation.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/series.h"
#include "ephemeris/seriessums.h"
#include "ephemeris/sunplace.h"
#include "ephemeris/sunroutine.h"

#include <array>

namespace halvane {
namespace {

constexpr auto groups = consecutive_groups(termfull_groups, TermFunction::cosine);

EarthPlace earth_high(double tau) {
    const SunSeries& series = termfull();
    std::array<double, groups.size()> s{};
    series_sums().of_rates({series.phase.data(), series.frequency.data(), tau}, series.amplitude.data(),
                           {groups.data(), groups.size()}, s.data());
    return {s[0] + tau * (s[1] + tau * (s[2] + tau * (s[3] + tau * (s[4] + tau * s[5])))),
            s[6] + tau * (s[7] + tau * (s[8] + tau * (s[9] + tau * s[10]))),
            s[11] + tau * (s[12] + tau * (s[13] + tau * (s[14] + tau * (s[15] + tau * s[16]))))};
}

} // namespace

SunPlace geocentric_sun_high(double jd) {
    const Orientation& orientation = orientation_of(jd);
    const double tau = orientation.dynamical_days / 365250;
    const EarthPlace earth = earth_high(tau);
    double variation = 0;
    moddabb(tau, variation);
    return apparent_sun(orientation, earth, -0.005775518 * earth.radius * variation);
}

SunPlace sun_high(const Observer& observer, double jd) {
    SunPlace sun = geocentric_sun_high(jd);
    add_topocentric(observer, orientation_of(jd).frame, sun);
    return sun;
}

void modcorsh(double /*pi_value*/, double jd, double& right_ascension, double& declination,
              double& topocentric_right_ascension, double& topocentric_declination, double& longitude,
              double& latitude, double& topocentric_longitude, double& topocentric_latitude, double& radius,
              double& equation_of_time) {
    const SunPlace sun = sun_high(stored_observer(), jd);
    SunOutputs{right_ascension, declination, topocentric_right_ascension, topocentric_declination,
               longitude,       latitude,    topocentric_longitude,       topocentric_latitude,
               radius}
        .take(sun);
    equation_of_time = sun.equation_of_time;
}

} // namespace halvane
