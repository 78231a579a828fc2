// SPDX-License-Identifier: MIT
#include "ephemeris/seriessums.h"

#include "ephemeris/seriessums_sets.h"

namespace halvane {

std::array<const SeriesSums*, 4> runnable_series_sums() {
    std::array<const SeriesSums*, 4> sets{&base_sums};
#ifdef HALVANE_X86_SETS
    __builtin_cpu_init();
    if (__builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma")) {
        sets[1] = &avx2_sums;
        if (__builtin_cpu_supports("avx512f"))
            sets[2] = &avx512_sums;
    }
#endif
    return sets;
}

const SeriesSums& series_sums() {
    static const SeriesSums& widest = []() -> const SeriesSums& {
        const auto sets = runnable_series_sums();
        std::size_t last = 0;
        while (sets[last + 1] != nullptr)
            ++last;
        return *sets[last];
    }();
    return widest;
}

} // namespace halvane
