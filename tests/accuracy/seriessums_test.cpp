// SPDX-License-Identifier: MIT
#include "ephemeris/modgeneral.h"
#include "ephemeris/series.h"
#include "ephemeris/seriessums.h"
#include "routines/seriesloader.h"
#include "tests/support/programfolder.h"
#include "tools/measuring/random.h"

#include <cmath>
#include <vector>

#include <array>
#include <gtest/gtest.h>

namespace halvane {
namespace {

/// Calls `check` with every set of instructions that this processor has.
template <class Check>
void for_every_set(Check check) {
    for (const SeriesSums* set : runnable_series_sums()) {
        if (set == nullptr)
            break;
        SCOPED_TRACE(set->instructions);
        check(*set);
    }
}

/// The standard library's function of what is left of `x` without its half turns. The library takes them off
/// itself, but on x87 processors by a pi of 66 bits, too short for millions of radians.
double plain(TermFunction function, double x) {
    // pi in base 16; the products of the first two parts with a million half turns are exact.
    constexpr std::array<long double, 3> pi{0x3.243F6A88p0L, 0x0.85A308D3p-32L, 0x0.13198A2E03707344p-64L};
    const long long half_turns = std::llrint(x / pi[0]);
    long double rest = x;
    for (const long double part : pi)
        rest -= static_cast<long double>(half_turns) * part;
    const long double value = function == TermFunction::sine ? std::sin(rest) : std::cos(rest);
    return static_cast<double>(half_turns % 2 == 0 ? value : -value);
}

struct Sum {
    double value = 0;
    double size = 0; ///< sum of the amplitudes' magnitudes
};

/// The sum of a group in a plain loop over the standard library's functions, in row order.
template <class Argument>
Sum plain_sum(const TermGroup& group, const double* amplitude, Argument argument) {
    Sum sum;
    for (std::size_t i = 0; i < group.rows; ++i) {
        sum.value += amplitude[group.amplitude + i] * plain(group.function, argument(group.first + i));
        sum.size += std::fabs(amplitude[group.amplitude + i]);
    }
    return sum;
}

/// The value of a function of one argument, from a group of that argument alone.
double value_of(const SeriesSums& set, TermFunction function, double x) {
    const std::array<double, series_padding> amplitude{1};
    const std::array<double, series_padding> phase{x};
    const TermGroup group{function, 0, 0, series_padding, 0};
    double value = 0;
    set.of_rates({phase.data(), phase.data(), 0}, amplitude.data(), {&group, 1}, &value);
    return value;
}

/// Rounding of a sum: a few units of the last place of what has been added.
constexpr double rounding = 4e-16;

TEST(SeriesSums, TermsAgreeWithTheStandardLibraryUpToThreeMillionRadians) {
    for_every_set([](const SeriesSums& set) {
        Random random(3);
        for (int i = 0; i < 4000; ++i) {
            const double x = i % 2 == 0 ? random.between(-10, 10) : random.between(-3e6, 3e6);
            for (const TermFunction function : {TermFunction::sine, TermFunction::cosine})
                ASSERT_NEAR(value_of(set, function, x), plain(function, x), rounding) << "of " << x;
        }
    });
}

TEST(SeriesSums, SineIsRelativelyExactNearItsZeros) {
    for_every_set([](const SeriesSums& set) {
        for (const double x : {1e-12, 3.14159, -3.1415926, 6.2831853, 314.159265358, -1e-300})
            EXPECT_NEAR(value_of(set, TermFunction::sine, x) / plain(TermFunction::sine, x), 1, 1e-15)
                << "of " << x;
    });
}

TEST(SeriesSums, GroupsOfAnyLengthAreAddedInRowOrder) {
    constexpr std::array<std::size_t, 6> rows{1, 7, 8, 9, 31, 2};
    constexpr auto groups = consecutive_groups(rows, TermFunction::cosine);
    constexpr std::size_t total = 8 + 8 + 8 + 16 + 32 + 8;
    const std::vector<double> zero(total); // whose cosine is 1, so that the sums are exact
    std::vector<double> amplitude(total);
    Random random(5);
    std::array<double, rows.size()> forwards{};
    std::array<double, rows.size()> backwards{};
    for (const TermGroup& group : groups) {
        for (std::size_t i = 0; i < rows[group.sum]; ++i)
            forwards[group.sum] += amplitude[group.amplitude + i] = std::pow(10, random.between(-2, 2));
        for (std::size_t i = rows[group.sum]; i-- > 0;)
            backwards[group.sum] += amplitude[group.amplitude + i];
    }
    EXPECT_NE(forwards, backwards) << "the order must matter";
    for_every_set([&](const SeriesSums& set) {
        std::array<double, rows.size()> found{};
        set.of_rates({zero.data(), zero.data(), 0}, amplitude.data(), {groups.data(), groups.size()},
                     found.data());
        EXPECT_EQ(found, forwards);
    });
}

class LoadedSeriesSums : public testing::Test {
protected:
    void SetUp() override { load_series(); }

private:
    TemporaryProgramFolder folder_;
};

TEST_F(LoadedSeriesSums, SunsSeriesAgreeWithAPlainLoop) {
    constexpr auto groups = consecutive_groups(termfull_groups, TermFunction::cosine);
    const SunSeries& series = loaded_theory()->termfull();
    Random random(7);
    for_every_set([&](const SeriesSums& set) {
        for (int instant = 0; instant < 50; ++instant) {
            const double tau = random.between(-2, 2);
            std::array<double, groups.size()> found{};
            set.of_rates({series.phase.data(), series.frequency.data(), tau}, series.amplitude.data(),
                         {groups.data(), groups.size()}, found.data());
            for (const TermGroup& group : groups) {
                const Sum wanted = plain_sum(group, series.amplitude.data(), [&](std::size_t i) {
                    return series.phase[i] + series.frequency[i] * tau;
                });
                EXPECT_NEAR(found[group.sum], wanted.value, rounding * wanted.size) << "sum " << group.sum;
            }
        }
    });
}

TEST_F(LoadedSeriesSums, MoonsMainTermsAgreeWithAPlainLoop) {
    const MoonMainTerms& main = loaded_theory()->elp().main;
    const std::array<TermGroup, 2> groups{
        {{TermFunction::sine, 0, 0, 224, 0}, {TermFunction::cosine, 416, 416, 160, 1}}};
    Random random(11);
    for_every_set([&](const SeriesSums& set) {
        for (int instant = 0; instant < 50; ++instant) {
            const double t = random.between(-20, 20);
            const double t2 = t * t;
            std::array<double, groups.size()> found{};
            set.of_lunar({main.a0.data(), main.a1.data(), main.a2.data(), main.a3.data(), main.a4.data(), t},
                         main.amplitude.data(), {groups.data(), groups.size()}, found.data());
            for (const TermGroup& group : groups) {
                const Sum wanted = plain_sum(group, main.amplitude.data(), [&](std::size_t i) {
                    return (main.a0[i] + main.a1[i] * t + main.a2[i] * (1e-4 * t2) +
                            (main.a3[i] * (1e-6 * t2)) * (main.a4[i] * (1e-8 * t2 * t2))) *
                           radians_per_degree;
                });
                EXPECT_NEAR(found[group.sum], wanted.value, rounding * wanted.size) << "sum " << group.sum;
            }
        }
    });
}

TEST_F(LoadedSeriesSums, PeriodicTermsAgreeWithAPlainLoop) {
    const PeriodicTerms& table = loaded_theory()->mterm().nutation;
    const std::array<TermGroup, 2> groups{
        {{TermFunction::sine, 0, 0, nutation_rows, 0}, {TermFunction::cosine, 0, 0, nutation_rows, 1}}};
    Random random(13);
    for_every_set([&](const SeriesSums& set) {
        for (int instant = 0; instant < 50; ++instant) {
            std::array<double, 5> fundamental{};
            for (double& angle : fundamental)
                angle = random.between(0, 2 * pi);
            std::array<double, groups.size()> found{};
            set.of_multiples({table.d.data(), table.m.data(), table.m_prime.data(), table.f.data(),
                              table.omega.data(), fundamental.data()},
                             table.sine.data(), {groups.data(), groups.size()}, found.data());
            for (const TermGroup& group : groups) {
                const Sum wanted = plain_sum(group, table.sine.data(), [&](std::size_t i) {
                    return table.d[i] * fundamental[0] + table.m[i] * fundamental[1] +
                           table.m_prime[i] * fundamental[2] + table.f[i] * fundamental[3] +
                           table.omega[i] * fundamental[4];
                });
                EXPECT_NEAR(found[group.sum], wanted.value, rounding * wanted.size) << "sum " << group.sum;
            }
        }
    });
}

} // namespace
} // namespace halvane
