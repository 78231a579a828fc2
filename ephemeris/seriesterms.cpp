#include "ephemeris/seriesterms.h"

#include "ephemeris/seriesterms_sets.h"

#include <algorithm>
#include <array>

namespace halvane {
namespace {

const SeriesTerms& chosen_set() {
#ifdef HALVANE_VECTOR_TERMS
    __builtin_cpu_init();
    if (__builtin_cpu_supports("avx512f"))
        return avx512_terms;
    if (__builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma"))
        return avx2_terms;
    return sse2_terms;
#else
    return plain_terms;
#endif
}

struct Group {
    const double* terms;
    std::size_t count;
    double* sum;
};

/// Adds the groups `first` to `last` (at most four, longest first) side by side: the additions of one group
/// wait for each other, those of different groups do not.
void add_side_by_side(const Group* first, const Group* last) {
    std::array<double, 4> sum{};
    std::size_t row = 0;
    for (auto width = static_cast<std::size_t>(last - first); width > 0; --width) {
        const std::size_t end = first[width - 1].count;
        for (; row < end; ++row)
            for (std::size_t i = 0; i < width; ++i)
                sum[i] += first[i].terms[row];
    }
    for (std::size_t i = 0; first + i < last; ++i)
        *first[i].sum = sum[i];
}

} // namespace

const SeriesTerms& series_terms() {
    static const SeriesTerms& set = chosen_set();
    return set;
}

const SeriesTerms& plain_series_terms() {
    return plain_terms;
}

void row_order_sums(const double* terms, const std::size_t* counts, std::size_t groups, double* sums) {
    constexpr std::size_t most_groups = 20;
    std::array<Group, most_groups> ordered{};
    for (std::size_t i = 0; i < groups; ++i) {
        ordered[i] = {terms, counts[i], sums + i};
        terms += counts[i];
    }
    Group* const end = ordered.data() + groups;
    std::sort(ordered.data(), end, [](const Group& a, const Group& b) { return a.count > b.count; });
    for (Group* group = ordered.data(); group < end; group += std::min<std::ptrdiff_t>(4, end - group))
        add_side_by_side(group, group + std::min<std::ptrdiff_t>(4, end - group));
}

} // namespace halvane
