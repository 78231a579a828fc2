#include "ephemeris/earthorientation.h"
#include "ephemeris/instantkey.h"
#include "ephemeris/interpolation.h"
#include "ephemeris/orientation.h"
#include "ephemeris/orientationterms.h"
#include "ephemeris/series.h"
#include "ephemeris/seriessums.h"

#include "calendar/moddeltat.h"

#include <array>
#include <optional>

namespace halvane {
namespace {

/// D, M, M', F, Omega of the nutation's theory                                           [rad]
std::array<double, 5> fundamental_arguments(double t) {
    const double t2 = t * t;
    const double t3 = t2 * t;
    const std::array<double, 5> degrees{297.85036 + 445267.11148 * t - 0.0019142 * t2 + t3 / 189474,
                                        357.52772 + 35999.05034 * t - 0.0001603 * t2 - t3 / 300000,
                                        134.96298 + 477198.867398 * t + 0.0086972 * t2 + t3 / 56250,
                                        93.27191 + 483202.017538 * t - 0.0036825 * t2 + t3 / 327270,
                                        125.04452 - 1934.136261 * t + 0.0020708 * t2 + t3 / 450000};
    std::array<double, 5> radians{};
    for (std::size_t i = 0; i < degrees.size(); ++i)
        radians[i] = reduce360(degrees[i]) * radians_per_degree;
    return radians;
}

Orientation compute(double days) {
    constexpr double units_per_degree = 36000000;
    constexpr std::size_t rows = padded(nutation_rows);
    constexpr std::array<TermGroup, 2> groups{
        {{TermFunction::sine, 0, 0, rows, 0}, {TermFunction::cosine, rows, 0, rows, 1}}};
    const double tau = days / 365250;
    const double t = 10 * tau;
    const PeriodicTerms& table = mterm().nutation;

    std::array<double, 2 * rows> amplitude{};
    for (std::size_t i = 0; i < rows; ++i) {
        amplitude[i] = table.sine[i] + table.sine_rate[i] * t;
        amplitude[rows + i] = table.cosine[i] + table.cosine_rate[i] * t;
    }
    std::array<double, groups.size()> sums{};
    series_sums().of_multiples({table.d.data(), table.m.data(), table.m_prime.data(), table.f.data(),
                                table.omega.data(), fundamental_arguments(t).data()},
                               amplitude.data(), {groups.data(), groups.size()}, sums.data());

    Orientation result;
    result.nutation_longitude = sums[0] / units_per_degree;
    result.nutation_obliquity = sums[1] / units_per_degree;
    result.true_obliquity = mean_obliquity(tau / 10) + result.nutation_obliquity;
    return result;
}

InterpolatedSeries interpolated_orientation([](double days) {
    const Orientation o = compute(days);
    return InterpolatedSeries::Values{o.nutation_longitude, o.nutation_obliquity, o.true_obliquity};
});

Orientation interpolated(double days) {
    const auto [nutation_longitude, nutation_obliquity, true_obliquity, none] =
        interpolated_orientation.at(days);
    return {nutation_longitude, nutation_obliquity, true_obliquity, 0, {}};
}

} // namespace

const Orientation& orientation_of(double jd) {
    static Orientation kept;
    static std::optional<InstantKey> kept_key;
    const InstantKey key = InstantKey::of(jd);
    if (kept_key != key) {
        kept_key.reset();
        const double days = jd + days_to_dynamical_time(jd) - epoch_j2000;
        kept = interpolating ? interpolated(days) : compute(days);
        kept.dynamical_days = days;
        kept.frame = sky_frame(jd, kept.true_obliquity, kept.nutation_longitude);
        kept_key = key;
    }
    return kept;
}

double days_to_dynamical_time(double jd) {
    if (tdtinput == 1)
        return 0;
    double delta_t = 0;
    moddeltat(jd, delta_t);
    return delta_t;
}

void modobliquity(double jd, double& nutation_longitude, double& nutation_obliquity, double& true_obliquity) {
    const Orientation& orientation = orientation_of(jd);
    nutation_longitude = orientation.nutation_longitude;
    nutation_obliquity = orientation.nutation_obliquity;
    true_obliquity = orientation.true_obliquity;
}

} // namespace halvane
