// SPDX-License-Identifier: MIT
#include "ephemeris/seriessums_sets.h"

#include "ephemeris/modgeneral.h"

#include <immintrin.h>

namespace {

using Vector = __m256d;

inline Vector multiply_add(Vector a, Vector b, Vector c) {
    return _mm256_fmadd_pd(a, b, c);
}

} // namespace

#include "ephemeris/seriessums_kernel.inc"

namespace halvane {

const SeriesSums avx2_sums{"avx2", sum_groups<RateArguments>, sum_groups<LinearArguments>,
                           sum_groups<LunarArguments>, sum_groups<MultipleArguments>};

} // namespace halvane
