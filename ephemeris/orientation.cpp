// SPDX-License-Identifier: MIT
#include "ephemeris/orientationterms.h"
#include "ephemeris/seriessums.h"
#include "ephemeris/theory.h"

#include <array>

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

} // namespace

InterpolatedSeries::Values orientation_values(const Theory& theory, double days) {
    constexpr double units_per_degree = 36000000;
    constexpr std::size_t rows = padded(nutation_rows);
    constexpr std::array<TermGroup, 2> groups{
        {{TermFunction::sine, 0, 0, rows, 0}, {TermFunction::cosine, rows, 0, rows, 1}}};
    const double tau = days / 365250;
    const double t = 10 * tau;
    const PeriodicTerms& table = theory.mterm().nutation;

    std::array<double, 2 * rows> amplitude{};
    for (std::size_t i = 0; i < rows; ++i) {
        amplitude[i] = table.sine[i] + table.sine_rate[i] * t;
        amplitude[rows + i] = table.cosine[i] + table.cosine_rate[i] * t;
    }
    std::array<double, groups.size()> sums{};
    series_sums().of_multiples({table.d.data(), table.m.data(), table.m_prime.data(), table.f.data(),
                                table.omega.data(), fundamental_arguments(t).data()},
                               amplitude.data(), {groups.data(), groups.size()}, sums.data());

    const double nutation_longitude = sums[0] / units_per_degree;
    const double nutation_obliquity = sums[1] / units_per_degree;
    return {nutation_longitude, nutation_obliquity, mean_obliquity(tau / 10) + nutation_obliquity};
}

} // namespace halvane
