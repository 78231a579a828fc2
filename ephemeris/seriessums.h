// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

namespace halvane {

/// The rows of a group fill a whole number of the widest vectors: rows of zeros follow its own.
inline constexpr std::size_t series_padding = 8;

/// Rows of a group with its padding.
constexpr std::size_t padded(std::size_t rows) {
    return (rows + series_padding - 1) / series_padding * series_padding;
}

enum class TermFunction { sine, cosine };

/// Rows of a series that are added to one sum, amplitude times the function of the argument.
struct TermGroup {
    TermFunction function = TermFunction::cosine;
    std::size_t amplitude = 0; ///< index of the first row's amplitude
    std::size_t first = 0;     ///< index of the first row's argument
    std::size_t rows = 0;      ///< with padding
    std::size_t sum = 0;       ///< index of the sum in the results
};

struct TermGroups {
    const TermGroup* groups;
    std::size_t count;
};

/// Puts the longest groups first: groups of like length are added side by side.
template <std::size_t N>
constexpr std::array<TermGroup, N> longest_first(std::array<TermGroup, N> groups) {
    std::sort(groups.begin(), groups.end(),
              [](const TermGroup& a, const TermGroup& b) { return a.rows > b.rows; });
    return groups;
}

/// Groups of so many rows, padded, that stand one after the other, their sums in the same order.
template <std::size_t N>
constexpr std::array<TermGroup, N> consecutive_groups(const std::array<std::size_t, N>& rows,
                                                      TermFunction function) {
    std::array<TermGroup, N> groups{};
    std::size_t first = 0;
    for (std::size_t i = 0; i < N; ++i) {
        groups[i] = {function, first, first, padded(rows[i]), i};
        first += padded(rows[i]);
    }
    return longest_first(groups);
}

/// phase + frequency t                                                                       [rad]
struct RateArguments {
    const double *phase, *frequency;
    double t;
};

/// a0 + a1 t                                                                                 [deg]
struct LinearArguments {
    const double *a0, *a1;
    double t;
};

/// a0 + a1 t + 1e-4 a2 t^2 + (1e-6 a3 t^2)(1e-8 a4 t^4)                                      [deg]
struct LunarArguments {
    const double *a0, *a1, *a2, *a3, *a4;
    double t;
};

/// d D + m M + p M' + f F + o Omega of five fundamental arguments                            [rad]
struct MultipleArguments {
    const double *d, *m, *m_prime, *f, *omega;
    const double* fundamental;
};

/// Sums of the groups of a series, the terms of each added in row order, by the widest vectors that the
/// processor has.
/// Accuracy  each term within 4e-16 of its amplitude for arguments up to 3e6 rad; places within 1e-12 of
///           those of plain loops over the standard library (tests/accuracy).
struct SeriesSums {
    const char* instructions; ///< name of the vector instructions in use
    void (*of_rates)(const RateArguments& arguments, const double* amplitude, TermGroups groups,
                     double* sums);
    void (*of_linear)(const LinearArguments& arguments, const double* amplitude, TermGroups groups,
                      double* sums);
    void (*of_lunar)(const LunarArguments& arguments, const double* amplitude, TermGroups groups,
                     double* sums);
    void (*of_multiples)(const MultipleArguments& arguments, const double* amplitude, TermGroups groups,
                         double* sums);
};

/// The set for this processor, chosen once.
const SeriesSums& series_sums();

/// Every set that this processor can run, null at the end; the first runs on any.
std::array<const SeriesSums*, 4> runnable_series_sums();

} // namespace halvane
