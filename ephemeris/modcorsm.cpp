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

constexpr auto groups = consecutive_groups(term_groups, TermFunction::cosine);

/// Divisors of the groups' sums: the file scales the small groups up.
constexpr std::array<double, term_groups.size()> divisors{1,  10, 10, 1000, 1000, 1000, 1,
                                                          10, 1,  10, 10,   1000, 1000};
constexpr double unit = 1e8;

EarthPlace earth_medium(double tau) {
    const SunSeries& series = term();
    std::array<double, groups.size()> s{};
    series_sums().of_rates({series.phase.data(), series.frequency.data(), tau}, series.amplitude.data(),
                           {groups.data(), groups.size()}, s.data());
    for (std::size_t i = 0; i < s.size(); ++i)
        s[i] /= divisors[i];
    return {(s[0] + tau * (s[1] + tau * (s[2] + tau * (s[3] + tau * (s[4] + tau * s[5]))))) / unit,
            (s[6] + tau * s[7]) / unit,
            (s[8] + tau * (s[9] + tau * (s[10] + tau * (s[11] + tau * s[12])))) / unit};
}

} // namespace

SunPlace geocentric_sun_medium(double jd) {
    const Orientation& orientation = orientation_of(jd);
    const double tau = orientation.dynamical_days / 365250;
    const EarthPlace earth = earth_medium(tau);
    return apparent_sun(orientation, earth, -0.0056916111 / earth.radius);
}

SunPlace sun_medium(const Observer& observer, double jd) {
    SunPlace sun = geocentric_sun_medium(jd);
    add_topocentric(observer, orientation_of(jd).frame, sun);
    return sun;
}

void modcorsm(double /*pi_value*/, double jd, double& right_ascension, double& declination,
              double& topocentric_right_ascension, double& topocentric_declination, double& longitude,
              double& latitude, double& topocentric_longitude, double& topocentric_latitude, double& radius,
              double& equation_of_time) {
    const SunPlace sun = sun_medium(stored_observer(), jd);
    SunOutputs{right_ascension, declination, topocentric_right_ascension, topocentric_declination,
               longitude,       latitude,    topocentric_longitude,       topocentric_latitude,
               radius}
        .take(sun);
    equation_of_time = sun.equation_of_time;
}

} // namespace halvane
