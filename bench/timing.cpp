// SPDX-License-Identifier: MIT
#include "bench/timing.h"

#include <algorithm>
#include <ctime>
#include <limits>

namespace halvane::bench {
namespace {

constexpr double never = std::numeric_limits<double>::infinity();

/// Time of the processor, which other programs do not share.
double now() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

double time_of(const Work& work) {
    const double start = now();
    work();
    return now() - start;
}

} // namespace

double shortest_time(const Work& work, int runs) {
    double shortest = never;
    for (int run = 0; run < runs; ++run)
        shortest = std::min(shortest, time_of(work));
    return shortest;
}

Times shortest_times(const Work& ours, const Work& reference, int runs) {
    Times shortest{never, never};
    for (int run = 0; run < runs; ++run) {
        shortest.ours = std::min(shortest.ours, time_of(ours));
        shortest.reference = std::min(shortest.reference, time_of(reference));
    }
    return shortest;
}

} // namespace halvane::bench
