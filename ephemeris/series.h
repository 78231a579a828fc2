// SPDX-License-Identifier: MIT
#pragma once

#include "ephemeris/seriessums.h"

#include <array>
#include <cstddef>
#include <new>
#include <string>
#include <vector>

namespace halvane {

/// Storage that begins at a cache line: no load of a vector then crosses two lines.
template <class T>
struct LineAllocator {
    using value_type = T;
    static constexpr std::align_val_t line{64}; // [bytes]

    LineAllocator() = default;
    template <class Other>
    LineAllocator(const LineAllocator<Other>&) {} // NOLINT: allocators convert

    T* allocate(std::size_t count) { return static_cast<T*>(::operator new(count * sizeof(T), line)); }
    void deallocate(T* values, std::size_t) { ::operator delete(values, line); }
    bool operator==(const LineAllocator&) const = default;
};

/// One column of a series; each group is padded with zeros (see seriessums.h).
using SeriesColumn = std::vector<double, LineAllocator<double>>;

/// Terms A cos(B + C tau) of VSOP87 in groups by coordinate and power of tau.
struct SunSeries {
    SeriesColumn amplitude; ///< A, unit by table
    SeriesColumn phase;     ///< B [rad]
    SeriesColumn frequency; ///< C [rad per Julian millennium]
};

/// Row counts of `termfull.vsk`: L0 to L5, B0 to B4, R0 to R5.
inline constexpr std::array<std::size_t, 17> termfull_groups{559, 341, 142, 22,  11,  5,  184, 99, 49,
                                                             11,  5,   526, 292, 139, 27, 10,  3};
/// Row counts of `term.vsk`: L0 to L5, B0, B1, R0 to R4.
inline constexpr std::array<std::size_t, 13> term_groups{78, 39, 27, 8, 4, 4, 7, 3, 50, 14, 8, 2, 4};

/// Terms of the lunar theory whose argument is a0 + a1 T + 1e-4 a2 T^2 + (1e-6 a3 T^2)(1e-8 a4 T^4), degrees.
struct MoonMainTerms {
    SeriesColumn amplitude, a0, a1, a2, a3, a4;
};

/// Terms of the lunar theory whose argument is a0 + a1 T, degrees.
struct MoonSecondaryTerms {
    SeriesColumn amplitude, a0, a1;
};

/// `elp.vsk`: longitude, latitude and distance, each a main block and three secondary ones (factors 1, T and
/// 1e-4 T^2). The main blocks stand one after the other, and so do the secondary ones.
struct MoonSeries {
    MoonMainTerms main;
    MoonSecondaryTerms secondary;
};

/// Row counts of `elp.vsk` by coordinate: main block, then the three secondary ones.
inline constexpr std::array<std::array<std::size_t, 4>, 3> elp_blocks{
    {{218, 244, 154, 25}, {188, 64, 64, 12}, {154, 114, 68, 19}}};

/// A table of `mterm.vsk`: multiples of D, M, M', F and the further columns.
struct PeriodicTerms {
    SeriesColumn d, m, m_prime, f;
    SeriesColumn omega;               ///< multiples of Omega (nutation only)
    SeriesColumn sine, sine_rate;     ///< nutation in longitude, 0.0001"; or amplitude of the sine sum
    SeriesColumn cosine, cosine_rate; ///< nutation in obliquity, 0.0001"; or amplitude of the cosine sum
};

inline constexpr std::size_t nutation_rows = 63;
inline constexpr std::size_t moon_rows = 60;

/// `mterm.vsk`: nutation; and the Moon's longitude (sine, 1e-6 deg) with her distance (cosine, 0.001 km),
/// then her latitude (sine, 1e-6 deg), `moon_rows` each.
struct PeriodicTables {
    PeriodicTerms nutation;
    PeriodicTerms moon;
};

} // namespace halvane
