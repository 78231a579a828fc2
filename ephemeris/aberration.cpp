// SPDX-License-Identifier: MIT
#include "ephemeris/modgeneral.h"
#include "ephemeris/seriessums.h"
#include "ephemeris/sunplace.h"

#include <array>

namespace halvane {
namespace {

/// Sine terms of the variation by power of tau.
constexpr std::array<std::size_t, 4> powers{14, 3, 3, 1};
constexpr std::size_t rows = 21;
constexpr auto groups = consecutive_groups(powers, TermFunction::sine);
constexpr std::size_t padded_rows = 40;

using Compact = std::array<double, rows>;

/// Amplitudes                                                                            [arc seconds]
constexpr Compact amplitudes{118.568, 2.476, 1.376, 0.119, 0.114, 0.086, 0.078, 0.054, 0.052, 0.034, 0.033,
                             0.023,   0.023, 0.021, 7.311, 0.305, 0.01,  0.309, 0.021, 0.004, 0.01};
/// Phases                                                                                [deg]
constexpr Compact phases{87.5287,  85.0561,  27.8502, 73.1375,  337.2264, 222.54,   162.8136,
                         82.5823,  171.5189, 30.3214, 119.8105, 247.5418, 325.1526, 155.1241,
                         333.4515, 330.9814, 328.517, 241.4518, 205.0482, 297.861,  154.7066};
/// Rates                                                                      [deg per Julian millennium]
constexpr Compact rates{359993.7286,  719987.4571,  4452671.1152, 450368.8564,  329644.6718,  659289.3436,
                        9224659.7915, 1079981.1857, 225184.4282,  4092677.3866, 337181.4711,  299295.6151,
                        315559.556,   675553.2846,  359993.7286,  719987.4571,  1079981.1857, 359993.7286,
                        719987.4571,  4452671.1152, 359993.7286};

/// The column with the padding of its groups.
constexpr std::array<double, padded_rows> with_padding(const Compact& compact) {
    std::array<double, padded_rows> column{};
    std::size_t from = 0;
    std::size_t to = 0;
    for (const std::size_t count : powers) {
        for (std::size_t i = 0; i < count; ++i)
            column[to + i] = compact[from + i];
        from += count;
        to += padded(count);
    }
    return column;
}

constexpr auto amplitude = with_padding(amplitudes);
constexpr auto phase = with_padding(phases);
constexpr auto rate = with_padding(rates);

} // namespace

double daily_variation(double tau) {
    std::array<double, groups.size()> sums{};
    series_sums().of_linear({phase.data(), rate.data(), tau}, amplitude.data(),
                            {groups.data(), groups.size()}, sums.data());
    return (3548.193 + sums[0] + tau * (sums[1] + tau * (sums[2] + tau * sums[3]))) / 3600;
}

} // namespace halvane
