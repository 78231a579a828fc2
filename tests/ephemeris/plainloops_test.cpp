// SPDX-License-Identifier: MIT
// Every routine of a series against a plain loop over the columns that were read, and every set of vector
// instructions against the plain one.

#include "calendar/moddeltat.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/moon.h"
#include "ephemeris/orientationterms.h"
#include "ephemeris/seriessums.h"
#include "ephemeris/sun.h"
#include "routines/modearthorientation.h"
#include "routines/namedengine.h"
#include "routines/seriesloader.h"
#include "routines/tdtinput.h"
#include "tests/ephemeris/observed.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <vector>

namespace halvane {
namespace {

using PlainLoop = EphemerisTest;

constexpr double whole_turn = 360 * 1e-12;

double plain_group(const SunSeries& s, std::size_t& row, std::size_t count, double tau) {
    double sum = 0;
    for (std::size_t i = row; i < row + count; ++i)
        sum += s.amplitude[i] * std::cos(s.phase[i] + s.frequency[i] * tau);
    row += padded(count);
    return sum;
}

/// Sum of groups times powers of tau.
double plain_coordinate(const SunSeries& s, const std::size_t* groups, std::size_t first, std::size_t powers,
                        const double* divisors, double tau) {
    std::size_t row = 0;
    for (std::size_t i = 0; i < first; ++i)
        row += padded(groups[i]);
    double value = 0;
    for (std::size_t power = 0; power < powers; ++power)
        value += plain_group(s, row, groups[first + power], tau) / divisors[power] *
                 std::pow(tau, static_cast<double>(power));
    return value;
}

struct Apparent {
    double longitude, latitude, radius;
};

Apparent plain_apparent(double jd, double l, double b, double r, double aberration, double tau) {
    double longitude = l * degrees_per_radian + 180;
    double latitude = -b * degrees_per_radian;
    const double t = 10 * tau;
    const double shifted = (longitude - 1.397 * t - 0.00031 * t * t) * radians_per_degree;
    latitude += (std::cos(shifted) - std::sin(shifted)) * 1.0877777777e-05;
    longitude -= 2.5e-05;
    double nutation = 0;
    double ignored = 0;
    double obliquity = 0;
    modobliquity(jd, nutation, ignored, obliquity);
    return {longitude + nutation + aberration, latitude, r};
}

TEST_F(PlainLoop, OfTheCompleteSunIsTheRoutine) {
    const TdtSpan dynamical_time(1);
    constexpr double ones[]{1, 1, 1, 1, 1, 1};
    for (const double jd : some_instants(60, 41)) {
        const double tau = (jd - epoch_j2000) / 365250;
        const double l =
            plain_coordinate(loaded_theory()->termfull(), termfull_groups.data(), 0, 6, ones, tau);
        const double b =
            plain_coordinate(loaded_theory()->termfull(), termfull_groups.data(), 6, 5, ones, tau);
        const double r =
            plain_coordinate(loaded_theory()->termfull(), termfull_groups.data(), 11, 6, ones, tau);
        double variation = 0;
        moddabb(tau, variation);
        const Apparent expected = plain_apparent(jd, l, b, r, -0.005775518 * r * variation, tau);
        const SunPlace sun = sun_high(named_ephemeris(), named_instant(jd), observer_at(0, 0, 0));
        EXPECT_LT(separation(sun.longitude, expected.longitude), 2 * whole_turn);
        EXPECT_NEAR(sun.latitude, expected.latitude, 1e-12);
        EXPECT_NEAR(sun.radius, expected.radius, 1e-12);
    }
}

TEST_F(PlainLoop, OfTheShortSunIsTheRoutine) {
    const TdtSpan dynamical_time(1);
    constexpr double longitude_divisors[]{1, 10, 10, 1000, 1000, 1000};
    constexpr double latitude_divisors[]{1, 10};
    constexpr double radius_divisors[]{1, 10, 10, 1000, 1000};
    for (const double jd : some_instants(60, 42)) {
        const double tau = (jd - epoch_j2000) / 365250;
        const double l =
            plain_coordinate(loaded_theory()->term(), term_groups.data(), 0, 6, longitude_divisors, tau) /
            1e8;
        const double b =
            plain_coordinate(loaded_theory()->term(), term_groups.data(), 6, 2, latitude_divisors, tau) / 1e8;
        const double r =
            plain_coordinate(loaded_theory()->term(), term_groups.data(), 8, 5, radius_divisors, tau) / 1e8;
        const Apparent expected = plain_apparent(jd, l, b, r, -0.0056916111 / r, tau);
        const SunPlace sun = sun_medium(named_ephemeris(), named_instant(jd), observer_at(0, 0, 0));
        EXPECT_LT(separation(sun.longitude, expected.longitude), 2 * whole_turn);
        EXPECT_NEAR(sun.latitude, expected.latitude, 1e-12);
        EXPECT_NEAR(sun.radius, expected.radius, 1e-12);
    }
}

double reduced(double degrees) {
    return std::fmod(std::fmod(degrees, 360) + 360, 360) * radians_per_degree;
}

TEST_F(PlainLoop, OfTheNutationIsTheRoutine) {
    const TdtSpan dynamical_time(1);
    const PeriodicTerms& n = loaded_theory()->mterm().nutation;
    for (const double jd : some_instants(100, 43)) {
        const double t = (jd - epoch_j2000) / 36525;
        const double d = reduced(297.85036 + 445267.11148 * t - 0.0019142 * t * t + t * t * t / 189474);
        const double m = reduced(357.52772 + 35999.05034 * t - 0.0001603 * t * t - t * t * t / 300000);
        const double p = reduced(134.96298 + 477198.867398 * t + 0.0086972 * t * t + t * t * t / 56250);
        const double f = reduced(93.27191 + 483202.017538 * t - 0.0036825 * t * t + t * t * t / 327270);
        const double o = reduced(125.04452 - 1934.136261 * t + 0.0020708 * t * t + t * t * t / 450000);
        double psi = 0;
        double epsilon = 0;
        for (std::size_t i = 0; i < nutation_rows; ++i) {
            const double argument = n.d[i] * d + n.m[i] * m + n.m_prime[i] * p + n.f[i] * f + n.omega[i] * o;
            psi += (n.sine[i] + n.sine_rate[i] * t) * std::sin(argument);
            epsilon += (n.cosine[i] + n.cosine_rate[i] * t) * std::cos(argument);
        }
        double longitude = 0;
        double obliquity = 0;
        double true_obliquity = 0;
        modobliquity(jd, longitude, obliquity, true_obliquity);
        // The quantity is the largest term, 17". The arguments of both ways part by their reduction, 1e-12
        // rad.
        EXPECT_NEAR(longitude, psi / 36000000, 20 * arc_second * 1e-11);
        EXPECT_NEAR(obliquity, epsilon / 36000000, 10 * arc_second * 1e-11);
        EXPECT_NEAR(true_obliquity, mean_obliquity(t / 100) + epsilon / 36000000, 24 * 1e-12);
    }
}

TEST_F(PlainLoop, OfTheMoonsPeriodicTermsIsTheRoutine) {
    const TdtSpan dynamical_time(1);
    for (const double jd : some_instants(100, 44)) {
        const double t = (jd - epoch_j2000) / 36525;
        const double t2 = t * t;
        const double t3 = t2 * t;
        const double t4 = t3 * t;
        const double l =
            reduced(218.3164591 + 481267.88134236 * t - 0.0013268 * t2 + t3 / 189474 - t4 / 65194000);
        const double d =
            reduced(297.8502042 + 445267.1115168 * t - 0.00163 * t2 + t3 / 545868 - t4 / 113065000);
        const double m = reduced(357.5291092 + 35999.0502909 * t - 0.0001536 * t2 + t3 / 24490000);
        const double p =
            reduced(134.9634114 + 477198.8676313 * t + 0.008997 * t2 + t3 / 69699 - t4 / 14712000);
        const double f =
            reduced(93.2720993 + 483202.0175273 * t - 0.0034029 * t2 - t3 / 3526000 + t4 / 863310000);
        const double a1 = reduced(119.75 + 131.849 * t);
        const double a2 = reduced(53.09 + 479264.29 * t);
        const double a3 = reduced(313.45 + 481266.484 * t);
        const double e = 1 - 0.002516 * t - 0.0000074 * t2;
        const PeriodicTerms& table = loaded_theory()->mterm().moon;
        const auto argument = [&](std::size_t i) {
            return table.d[i] * d + table.m[i] * m + table.m_prime[i] * p + table.f[i] * f;
        };
        double longitude = 3958 * std::sin(a1) + 1962 * std::sin(l - f) + 318 * std::sin(a2);
        double distance = 0;
        double latitude = -2235 * std::sin(l) + 382 * std::sin(a3) + 175 * std::sin(a1 - f) +
                          175 * std::sin(a1 + f) + 127 * std::sin(l - p) - 115 * std::sin(l + p);
        constexpr std::size_t latitudes = padded(moon_rows);
        for (std::size_t i = 0; i < moon_rows; ++i) {
            const double factor = std::pow(e, std::fabs(table.m[i]));
            longitude += table.sine[i] * factor * std::sin(argument(i));
            distance += table.cosine[i] * factor * std::cos(argument(i));
            const std::size_t row = latitudes + i;
            latitude += table.sine[row] * std::pow(e, std::fabs(table.m[row])) * std::sin(argument(row));
        }
        double nutation = 0;
        double ignored = 0;
        double obliquity = 0;
        modobliquity(jd, nutation, ignored, obliquity);
        const MoonPlace moon = moon_low(named_ephemeris(), named_instant(jd), observer_at(0, 0, 0));
        EXPECT_LT(separation(moon.longitude, l * degrees_per_radian + longitude / 1e6 + nutation),
                  whole_turn);
        EXPECT_NEAR(moon.latitude, latitude / 1e6, 5.3 * 1e-11);
        EXPECT_NEAR(moon.distance, 385000.56 + distance / 1000, 4e5 * 1e-12);
    }
}

struct Blocks {
    double main, factor_1, factor_t, factor_t2;
};

template <class Wave>
Blocks plain_blocks(std::size_t coordinate, double t, Wave wave) {
    const MoonMainTerms& main = loaded_theory()->elp().main;
    const MoonSecondaryTerms& secondary = loaded_theory()->elp().secondary;
    Blocks sums{};
    const double t2 = t * t;
    const std::size_t first = first_row_of_block(coordinate, 0);
    for (std::size_t i = first; i < first + elp_blocks[coordinate][0]; ++i)
        sums.main += main.amplitude[i] * wave((main.a0[i] + main.a1[i] * t + main.a2[i] * (1e-4 * t2) +
                                               (main.a3[i] * (1e-6 * t2)) * (main.a4[i] * (1e-8 * t2 * t2))) *
                                              radians_per_degree);
    double* const parts[]{&sums.factor_1, &sums.factor_t, &sums.factor_t2};
    for (std::size_t block = 1; block < 4; ++block) {
        const std::size_t row = first_row_of_block(coordinate, block);
        for (std::size_t i = row; i < row + elp_blocks[coordinate][block]; ++i)
            *parts[block - 1] +=
                secondary.amplitude[i] * wave((secondary.a0[i] + secondary.a1[i] * t) * radians_per_degree);
    }
    return sums;
}

TEST_F(PlainLoop, OfTheLunarTablesIsTheRoutine) {
    const TdtSpan dynamical_time(1);
    // Beyond the usual centuries the high powers count as well.
    std::vector<double> instants = some_instants(60, 45);
    instants.push_back(epoch_j2000 - 36525 * 40);
    instants.push_back(epoch_j2000 + 36525 * 60);
    for (const double jd : instants) {
        const double t = (jd - epoch_j2000) / 36525;
        const Blocks v = plain_blocks(0, t, [](double x) { return std::sin(x); });
        const Blocks u = plain_blocks(1, t, [](double x) { return std::sin(x); });
        const Blocks r = plain_blocks(2, t, [](double x) { return std::cos(x); });
        const double anomaly = (225 + 477198.9 * t) * radians_per_degree;
        double nutation = 0;
        double ignored = 0;
        double obliquity = 0;
        modobliquity(jd, nutation, ignored, obliquity);
        const double longitude = rev360(218.31665 + 481267.88134 * t - 13.268e-4 * t * t +
                                        1.8561e-6 * t * t * t - 1.534e-8 * t * t * t * t + v.main +
                                        1e-3 * (v.factor_1 + t * v.factor_t + 1e-4 * t * t * v.factor_t2)) -
                                 0.00019524 - 0.00001059 * std::sin(anomaly) + nutation;
        const double latitude = u.main + 1e-3 * (u.factor_1 + t * u.factor_t + 1e-4 * t * t * u.factor_t2) -
                                0.00001754 * std::sin((183.3 + 483202 * t) * radians_per_degree);
        const double distance = 385000.57 + r.main + r.factor_1 + t * r.factor_t +
                                1e-4 * t * t * r.factor_t2 + 0.0708 * std::cos(anomaly);
        const MoonPlace moon = moon_medium(named_ephemeris(), named_instant(jd), observer_at(0, 0, 0));
        // Far from 2000 the mean longitude itself has fewer digits.
        const double digits = std::fabs(481267.88 * t) * 2.3e-16 * 4;
        EXPECT_LT(separation(moon.longitude, longitude), whole_turn + digits);
        EXPECT_NEAR(moon.latitude, latitude, 5.3 * 1e-12);
        EXPECT_NEAR(moon.distance, distance, 4e5 * 1e-12);
    }
}

class InstructionSet : public EphemerisTest, public testing::WithParamInterface<const SeriesSums*> {
protected:
    const SeriesSums& set() const { return *GetParam(); }
    /// Sums of one group of `rows` rows from `first` on, by each function.
    using Sums = std::array<double, 2>;
    static constexpr double per_term = 1e-15; ///< of the amplitude
};

/// One group of rows, as sines and as cosines.
std::array<TermGroup, 2> both_functions(std::size_t rows) {
    return {{{TermFunction::sine, 0, 0, padded(rows), 0}, {TermFunction::cosine, 0, 0, padded(rows), 1}}};
}

double total_amplitude(const SeriesColumn& amplitude, std::size_t rows) {
    double total = 0;
    for (std::size_t i = 0; i < rows; ++i)
        total += std::fabs(amplitude[i]);
    return total;
}

TEST_P(InstructionSet, AddsThePlainWavesOfTheSunsSeries) {
    for (const double tau : {-3.7, -0.1, 0.0, 0.026, 0.1, 4.0}) {
        const SunSeries& s = loaded_theory()->termfull();
        const std::size_t rows = termfull_groups[0];
        const auto groups = both_functions(rows);
        Sums found{};
        Sums expected{};
        set().of_rates({s.phase.data(), s.frequency.data(), tau}, s.amplitude.data(), {groups.data(), 2},
                       found.data());
        for (std::size_t i = 0; i < rows; ++i) {
            const double argument = s.phase[i] + s.frequency[i] * tau;
            expected[0] += s.amplitude[i] * std::sin(argument);
            expected[1] += s.amplitude[i] * std::cos(argument);
        }
        const double tolerance = total_amplitude(s.amplitude, rows) * per_term;
        EXPECT_NEAR(found[0], expected[0], tolerance);
        EXPECT_NEAR(found[1], expected[1], tolerance);
    }
}

TEST_P(InstructionSet, AddsThePlainWavesOfTheMoonsSeries) {
    for (const double t : {-30.0, -1.0, 0.0, 0.26, 1.0}) {
        const MoonMainTerms& m = loaded_theory()->elp().main;
        const std::size_t rows = elp_blocks[0][0];
        const auto groups = both_functions(rows);
        Sums found{};
        Sums expected{};
        set().of_lunar({m.a0.data(), m.a1.data(), m.a2.data(), m.a3.data(), m.a4.data(), t},
                       m.amplitude.data(), {groups.data(), 2}, found.data());
        for (std::size_t i = 0; i < rows; ++i) {
            const double t2 = t * t;
            const double argument = (m.a0[i] + m.a1[i] * t + m.a2[i] * (1e-4 * t2) +
                                     (m.a3[i] * (1e-6 * t2)) * (m.a4[i] * (1e-8 * t2 * t2))) *
                                    radians_per_degree;
            expected[0] += m.amplitude[i] * std::sin(argument);
            expected[1] += m.amplitude[i] * std::cos(argument);
        }
        // An argument of many turns has fewer digits after the point.
        const double digits = 1 + std::fabs(481267.88 * 4 * t) * radians_per_degree;
        const double tolerance = total_amplitude(m.amplitude, rows) * per_term * digits;
        EXPECT_NEAR(found[0], expected[0], tolerance);
        EXPECT_NEAR(found[1], expected[1], tolerance);
    }
}

TEST_P(InstructionSet, AddsThePlainTermsOfTheNutation) {
    const PeriodicTerms& n = loaded_theory()->mterm().nutation;
    const double fundamental[]{1.1, 2.2, 3.3, 4.4, 5.5};
    const auto groups = both_functions(nutation_rows);
    Sums found{};
    Sums expected{};
    set().of_multiples({n.d.data(), n.m.data(), n.m_prime.data(), n.f.data(), n.omega.data(), fundamental},
                       n.sine.data(), {groups.data(), 2}, found.data());
    for (std::size_t i = 0; i < nutation_rows; ++i) {
        const double argument =
            n.d[i] * 1.1 + n.m[i] * 2.2 + n.m_prime[i] * 3.3 + n.f[i] * 4.4 + n.omega[i] * 5.5;
        expected[0] += n.sine[i] * std::sin(argument);
        expected[1] += n.sine[i] * std::cos(argument);
    }
    const double tolerance = total_amplitude(n.sine, nutation_rows) * per_term * 10;
    EXPECT_NEAR(found[0], expected[0], tolerance);
    EXPECT_NEAR(found[1], expected[1], tolerance);
}

TEST_P(InstructionSet, AddsEachGroupInItsOwnOrder) {
    // Cosines of 0: sums that depend on the order of the additions.
    constexpr std::size_t groups_of_three = 3;
    std::vector<double> amplitude(groups_of_three * series_padding, 0.0);
    const std::vector<std::vector<double>> terms{{1e16, 1, -1e16}, {1, 2, 3, 4, 5}, {-1e16, 1e16, 0.5}};
    std::vector<TermGroup> groups;
    for (std::size_t g = 0; g < terms.size(); ++g) {
        std::copy(terms[g].begin(), terms[g].end(),
                  amplitude.begin() + static_cast<std::ptrdiff_t>(g * series_padding));
        groups.push_back({TermFunction::cosine, g * series_padding, g * series_padding, series_padding, g});
    }
    const std::vector<double> zeros(amplitude.size(), 0.0);
    double sums[groups_of_three]{9, 9, 9};
    set().of_rates({zeros.data(), zeros.data(), 1}, amplitude.data(), {groups.data(), groups.size()}, sums);
    EXPECT_EQ(sums[0], (1e16 + 1) - 1e16);
    EXPECT_EQ(sums[1], 15);
    EXPECT_EQ(sums[2], 0.5);
}

std::vector<const SeriesSums*> runnable_sets() {
    std::vector<const SeriesSums*> sets{&series_sums()};
    for (const SeriesSums* set : runnable_series_sums())
        if (set != nullptr)
            sets.push_back(set);
    return sets;
}

std::string set_name(const testing::TestParamInfo<const SeriesSums*>& info) {
    return info.index == 0 ? "chosen" : std::string(info.param->instructions);
}

INSTANTIATE_TEST_SUITE_P(Each, InstructionSet, testing::ValuesIn(runnable_sets()), set_name);

} // namespace
} // namespace halvane
