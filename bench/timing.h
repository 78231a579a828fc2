// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace halvane::bench {

using Work = std::function<void()>;

/// Shortest processor time of several runs: the one that other programs disturbed least          [s]
double shortest_time(const Work& work, int runs = 9);

/// The same for two works that are run in turns, so that both meet the same machine             [s]
struct Times {
    double ours;
    double reference;
};
Times shortest_times(const Work& ours, const Work& reference, int runs = 9);

/// The same by the clock on the wall, for work on several threads; other programs count         [s]
Times shortest_times_by_clock(const Work& ours, const Work& reference, int runs);

} // namespace halvane::bench
