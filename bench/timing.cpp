// SPDX-License-Identifier: MIT
#include "bench/timing.h"

#include <algorithm>
#include <ctime>
#include <limits>

namespace halvane::bench {
namespace {

constexpr double never = std::numeric_limits<double>::infinity();

/// Time of the processor, which other programs do not share.
constexpr clockid_t processor_clock = CLOCK_PROCESS_CPUTIME_ID;
constexpr clockid_t wall_clock = CLOCK_MONOTONIC;

double now(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

double time_of(const Work& work, clockid_t clock) {
    const double start = now(clock);
    work();
    return now(clock) - start;
}

Times shortest_by(clockid_t clock, const Work& ours, const Work& reference, int runs) {
    Times shortest{never, never};
    for (int run = 0; run < runs; ++run) {
        shortest.ours = std::min(shortest.ours, time_of(ours, clock));
        shortest.reference = std::min(shortest.reference, time_of(reference, clock));
    }
    return shortest;
}

} // namespace

double shortest_time(const Work& work, int runs) {
    double shortest = never;
    for (int run = 0; run < runs; ++run)
        shortest = std::min(shortest, time_of(work, processor_clock));
    return shortest;
}

Times shortest_times(const Work& ours, const Work& reference, int runs) {
    return shortest_by(processor_clock, ours, reference, runs);
}

Times shortest_times_by_clock(const Work& ours, const Work& reference, int runs) {
    return shortest_by(wall_clock, ours, reference, runs);
}

} // namespace halvane::bench
