#include "ephemeris/earthorientation.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/series.h"
#include "ephemeris/seriessums.h"

#include <array>

namespace halvane {
namespace {

constexpr std::size_t rows = 21 + series_padding; // zeros at the end

/// Sine terms of the variation by power of tau: 14, 3, 3, 1 of them.
constexpr auto powers = consecutive_groups(std::array<std::size_t, 4>{14, 3, 3, 1}, TermFunction::sine);

/// Amplitudes                                                                            [arc seconds]
constexpr std::array<double, rows> amplitude{118.568, 2.476, 1.376, 0.119, 0.114, 0.086, 0.078,
                                             0.054,   0.052, 0.034, 0.033, 0.023, 0.023, 0.021,
                                             7.311,   0.305, 0.01,  0.309, 0.021, 0.004, 0.01};
/// Phases                                                                                [deg]
constexpr std::array<double, rows> phase{87.5287,  85.0561,  27.8502, 73.1375,  337.2264, 222.54,   162.8136,
                                         82.5823,  171.5189, 30.3214, 119.8105, 247.5418, 325.1526, 155.1241,
                                         333.4515, 330.9814, 328.517, 241.4518, 205.0482, 297.861,  154.7066};
/// Rates                                                                      [deg per Julian millennium]
constexpr std::array<double, rows> rate{
    359993.7286,  719987.4571, 4452671.1152, 450368.8564, 329644.6718, 659289.3436,  9224659.7915,
    1079981.1857, 225184.4282, 4092677.3866, 337181.4711, 299295.6151, 315559.556,   675553.2846,
    359993.7286,  719987.4571, 1079981.1857, 359993.7286, 719987.4571, 4452671.1152, 359993.7286};

} // namespace

void moddabb(double tau, double& variation) {
    std::array<double, powers.size()> sums{};
    series_sums().of_linear({phase.data(), rate.data(), tau}, amplitude.data(),
                            {powers.data(), powers.size()}, sums.data());
    variation = (3548.193 + sums[0] + tau * (sums[1] + tau * (sums[2] + tau * sums[3]))) / 3600;
}

} // namespace halvane
