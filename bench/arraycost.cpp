// SPDX-License-Identifier: MIT
// arraycost DATA: microseconds of a value of the C++ interface's arrays, for bench/arraycost.py: the least of
// nine runs of 100,000 instants.
#include <halvane/sky.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

namespace {

using namespace halvane;

constexpr int instants = 100000;

double least_microseconds(const auto& work) {
    double least = 1e9;
    for (int run = 0; run < 9; ++run) {
        const auto begin = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double, std::micro> taken = std::chrono::steady_clock::now() - begin;
        least = std::min(least, taken.count() / instants);
    }
    return least;
}

} // namespace

int main(int, char** arguments) {
    const Engine engine(arguments[1]);
    std::vector<Instant> days;
    days.reserve(instants);
    for (int i = 0; i < instants; ++i)
        days.push_back(Instant::of_ut1(2451545 + 0.37 * i));
    const std::pair<const char*, Accuracy> accuracies[] = {
        {"complete", Accuracy::complete}, {"medium", Accuracy::medium}, {"low", Accuracy::low}};
    for (const auto& row : accuracies) {
        std::printf("sun %s %.4f\n", row.first, least_microseconds([&] { suns(engine, days, row.second); }));
        std::printf("moon %s %.4f\n", row.first,
                    least_microseconds([&] { moons(engine, days, row.second); }));
    }
}
