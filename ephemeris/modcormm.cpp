#include "ephemeris/earthorientation.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/moonplace.h"
#include "ephemeris/series.h"
#include "ephemeris/seriesterms.h"

#include <array>
#include <cmath>

namespace halvane {
namespace {

using Terms = void (*)(const double*, const double*, std::size_t, double*);

/// Sums of the main block and of the three secondary ones of a coordinate.
std::array<double, 4> block_sums(std::size_t coordinate, Terms terms_of, double t) {
    const MoonSeries::Coordinate& series = elp().coordinate[coordinate];
    const SeriesTerms& set = series_terms();
    const std::size_t main_rows = series.main.amplitude.size();
    const std::size_t secondary_rows = series.secondary.amplitude.size();
    constexpr std::size_t longest = 680;
    std::array<double, longest> argument; // NOLINT: filled as far as it is read
    std::array<double, longest> terms;    // NOLINT: filled as far as it is read

    const MoonMainTerms& main = series.main;
    const double t2 = t * t;
    set.main_argument(main.a0.data(), main.a1.data(), main.a2.data(), main.a3.data(), main.a4.data(), t,
                      1e-4 * t2, 1e-6 * t2, 1e-8 * t2 * t2, main_rows, argument.data());
    set.secondary_argument(series.secondary.a0.data(), series.secondary.a1.data(), t, secondary_rows,
                           argument.data() + main_rows);
    terms_of(main.amplitude.data(), argument.data(), main_rows, terms.data());
    terms_of(series.secondary.amplitude.data(), argument.data() + main_rows, secondary_rows,
             terms.data() + main_rows);

    const auto& rows = elp_blocks[coordinate];
    const std::array<std::size_t, 4> counts{main_rows, rows[1], rows[2], rows[3]};
    std::array<double, 4> sums{};
    row_order_sums(terms.data(), counts.data(), counts.size(), sums.data());
    return sums;
}

EclipticMoon true_moon(double t) {
    const double t2 = t * t;
    const SeriesTerms& set = series_terms();
    const auto v = block_sums(0, set.sine, t);
    const auto u = block_sums(1, set.sine, t);
    const auto r = block_sums(2, set.cosine, t);
    return {rev360(218.31665 + 481267.88134 * t - 13.268e-4 * t2 + 1.8561e-6 * t2 * t - 1.534e-8 * t2 * t2 +
                   v[0] + 1e-3 * (v[1] + t * v[2] + 1e-4 * t2 * v[3])),
            u[0] + 1e-3 * (u[1] + t * u[2] + 1e-4 * t2 * u[3]),
            385000.57 + r[0] + r[1] + t * r[2] + 1e-4 * t2 * r[3]};
}

/// The tables' own light-time correction.
void correct_for_light_time(double t, EclipticMoon& moon) {
    const double anomaly = (225 + 477198.9 * t) * radians_per_degree;
    moon.longitude += -0.00019524 - 0.00001059 * std::sin(anomaly);
    moon.latitude += -0.00001754 * std::sin((183.3 + 483202 * t) * radians_per_degree);
    moon.distance += 0.0708 * std::cos(anomaly);
}

} // namespace

MoonPlace moon_medium(const Observer& observer, double jd) {
    const double t = (jd + days_to_dynamical_time(jd) - epoch_j2000) / 36525;
    EclipticMoon moon = true_moon(t);
    correct_for_light_time(t, moon);
    double nutation = 0;
    double nutation_obliquity = 0;
    double obliquity = 0;
    modobliquity(jd, nutation, nutation_obliquity, obliquity);
    moon.longitude += nutation;
    return complete_moon(observer, jd, obliquity, nutation, moon);
}

void modcormm(double /*pi_value*/, double jd, double& right_ascension, double& declination,
              double& topocentric_right_ascension, double& topocentric_declination, double& longitude,
              double& latitude, double& topocentric_longitude, double& topocentric_latitude, double& parallax,
              double& semidiameter, double& topocentric_semidiameter, double& distance) {
    const MoonPlace moon = moon_medium(stored_observer(), jd);
    MoonOutputs{right_ascension, declination,  topocentric_right_ascension, topocentric_declination,
                longitude,       latitude,     topocentric_longitude,       topocentric_latitude,
                parallax,        semidiameter, topocentric_semidiameter}
        .take(moon);
    distance = moon.distance;
}

} // namespace halvane
