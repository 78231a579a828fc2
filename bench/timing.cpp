#include "bench/timing.h"

#include <algorithm>
#include <chrono>
#include <limits>

namespace halvane::bench {
namespace {

constexpr double never = std::numeric_limits<double>::infinity();

double time_of(const Work& work) {
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    work();
    return std::chrono::duration<double>(Clock::now() - start).count();
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
