#pragma once

#include <cstddef>

namespace halvane {

/// Longest column of any series, padding included.
inline constexpr std::size_t longest_series = 2432;

/// The terms of a series, one a row, by the widest vectors that the processor has. Counts are whole numbers
/// of the series padding; `terms` takes that many values. Accuracy  each term within 4 ulp of the plain
/// loop's; sums of a series within 1e-12 of their quantity.
struct SeriesTerms {
    const char* instructions; ///< name of the vector instructions in use
    /// A cos(B + C tau)
    void (*cosine_of_rate)(const double* amplitude, const double* phase, const double* frequency, double tau,
                           std::size_t count, double* terms);
    /// A sin(x) or A cos(x)
    void (*sine)(const double* amplitude, const double* argument, std::size_t count, double* terms);
    void (*cosine)(const double* amplitude, const double* argument, std::size_t count, double* terms);
    /// A sin(x) and B cos(x) of the same arguments
    void (*sine_and_cosine)(const double* sine_amplitude, const double* cosine_amplitude,
                            const double* argument, std::size_t count, double* sine_terms,
                            double* cosine_terms);
    /// (a0 + a1 T + a2 t2 + (a3 t3)(a4 t4)) in radians, from degrees
    void (*main_argument)(const double* a0, const double* a1, const double* a2, const double* a3,
                          const double* a4, double t, double t2, double t3, double t4, std::size_t count,
                          double* argument);
    /// (a0 + a1 T) in radians, from degrees
    void (*secondary_argument)(const double* a0, const double* a1, double t, std::size_t count,
                               double* argument);
    /// d D + m M + p M' + f F + o Omega; `o` may be null
    void (*fundamental_argument)(const double* d, const double* m, const double* p, const double* f,
                                 const double* o, const double* fundamental, std::size_t count,
                                 double* argument);
};

/// The set for this processor, chosen once.
const SeriesTerms& series_terms();

/// The set of plain loops over the standard library's functions.
const SeriesTerms& plain_series_terms();

/// Sums of consecutive groups of `terms`, each added in row order.
/// In     counts  rows of each group, `groups` of them
/// Out    sums    one a group
void row_order_sums(const double* terms, const std::size_t* counts, std::size_t groups, double* sums);

} // namespace halvane
