// SPDX-License-Identifier: MIT
#pragma once

#include "ephemeris/series.h"
#include "routines/seriesloader.h"
#include "tests/support/places.h"
#include "tests/support/programfolder.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace halvane {

/// A program folder with the series loaded.
class EphemerisTest : public testing::Test {
protected:
    EphemerisTest() { load_series(); }

    /// The observer of `loc.vsk`: signed degrees, metres.
    void stand_at(double longitude, double latitude, double height) const {
        Location location = place_at(longitude, latitude, 0);
        location.elevation = height;
        write_loc(location);
    }

    TemporaryProgramFolder folder;
};

/// Degrees, minutes and seconds of arc of a positive angle.
constexpr double dms(double degrees, double minutes, double seconds) {
    return degrees + minutes / 60 + seconds / 3600;
}

/// Hours, minutes and seconds of time in degrees.
constexpr double hms(double hours, double minutes, double seconds) {
    return 15 * dms(hours, minutes, seconds);
}

inline constexpr double arc_second = 1.0 / 3600;

/// What separates two angles, over the turn's end.
inline double separation(double a, double b) {
    return std::fabs(std::remainder(a - b, 360));
}

/// Instants spread over two centuries around 2000.
inline std::vector<double> some_instants(int count, unsigned seed) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> jd(2415020.5, 2488069.5);
    std::vector<double> instants;
    instants.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        instants.push_back(jd(random));
    return instants;
}

/// First row of a block of the lunar tables in its columns: block 0 among the main ones, 1 to 3 among the
/// secondary ones of a coordinate.
inline std::size_t first_row_of_block(std::size_t coordinate, std::size_t block) {
    std::size_t row = 0;
    for (std::size_t c = 0; c <= coordinate; ++c)
        for (std::size_t b = block == 0 ? 0 : 1; b < (block == 0 ? 1U : 4U); ++b) {
            if (c == coordinate && b == block)
                return row;
            row += padded(elp_blocks[c][b]);
        }
    return row;
}

} // namespace halvane
