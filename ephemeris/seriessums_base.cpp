// SPDX-License-Identifier: MIT
#include "ephemeris/seriessums_sets.h"

#include "ephemeris/modgeneral.h"

namespace {

using Vector = double __attribute__((vector_size(16)));

inline Vector multiply_add(Vector a, Vector b, Vector c) {
    return a * b + c;
}

} // namespace

#include "ephemeris/seriessums_kernel.inc"

namespace halvane {

const SeriesSums base_sums{"basic", sum_groups<RateArguments>, sum_groups<LinearArguments>,
                           sum_groups<LunarArguments>, sum_groups<MultipleArguments>};

} // namespace halvane
