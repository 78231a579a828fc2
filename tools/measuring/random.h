// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <random>

namespace halvane {

/// Random numbers that are the same on every system.
class Random {
public:
    explicit Random(std::uint64_t seed) : engine_(seed) {}
    double between(double low, double high) {
        constexpr double unit = 1.0 / (std::uint64_t{1} << 53U);
        return low + (high - low) * (static_cast<double>(engine_() >> 11U) * unit);
    }

private:
    std::mt19937_64 engine_;
};

} // namespace halvane
