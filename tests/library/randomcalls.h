// SPDX-License-Identifier: MIT
#pragma once

#include "halvane/values.h"

#include <random>

namespace halvane {

/// Arguments drawn by chance, the same in every run.
class RandomCalls {
public:
    double number(double least, double most) {
        return std::uniform_real_distribution<double>(least, most)(engine_);
    }
    int whole(int least, int most) { return std::uniform_int_distribution<int>(least, most)(engine_); }
    bool coin() { return whole(0, 1) == 1; }

    v1::Date date(int first_year = 1900, int last_year = 2100) {
        return {whole(first_year, last_year), whole(1, 12), whole(1, 28)};
    }
    v1::Instant instant() {
        return {number(2415020.5, 2488069.5), coin() ? v1::TimeScale::ut1 : v1::TimeScale::dynamical};
    }
    v1::Observer observer(double most_latitude = 90) {
        return {number(-most_latitude, most_latitude), number(-180, 180), number(0, 3000)};
    }
    /// Of whole and half hours near the longitude's own.
    double clock_hours(double longitude) { return whole(-2, 2) * 0.5 + static_cast<int>(longitude / 15); }

private:
    std::mt19937_64 engine_{20261123};
};

} // namespace halvane
