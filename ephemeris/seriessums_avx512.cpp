// SPDX-License-Identifier: MIT
#include "ephemeris/seriessums_sets.h"

#include "ephemeris/modgeneral.h"

#include <immintrin.h>

namespace {

using Vector = __m512d;

inline Vector multiply_add(Vector a, Vector b, Vector c) {
    return _mm512_fmadd_pd(a, b, c);
}

} // namespace

#include "ephemeris/seriessums_kernel.inc"

namespace halvane {

const SeriesSums avx512_sums{"avx512", sum_groups<RateArguments>, sum_groups<LinearArguments>,
                             sum_groups<LunarArguments>, sum_groups<MultipleArguments>};

} // namespace halvane
