// SPDX-License-Identifier: MIT
#pragma once

#include "crescent/gif.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

namespace halvane::test {

inline constexpr int random_picture_count = 2000;

inline int uniform(std::mt19937& random, int low, int high) {
    return std::uniform_int_distribution<int>(low, high)(random);
}

inline std::uint8_t random_byte(std::mt19937& random) {
    return static_cast<std::uint8_t>(uniform(random, 0, 255));
}

/// Mostly small sizes, one picture in ten up to 800 wide; the widths run through all remainders modulo 4.
inline GifPicture random_size(std::mt19937& random, int number) {
    const bool is_large = number % 10 == 0;
    const int widest_quarter = is_large ? 199 : 19;
    GifPicture picture;
    picture.width = std::clamp(4 * uniform(random, 0, widest_quarter) + number % 4 + 1, 1, 800);
    picture.height = uniform(random, 1, is_large ? 120 : 40);
    return picture;
}

/// Runs of equal indices as a map has them, and runs of length one as noise has them.
inline std::vector<std::uint8_t> random_indices(std::mt19937& random, std::size_t count, int colours) {
    const int longest_run = 1 << uniform(random, 0, 7);
    std::vector<std::uint8_t> indices;
    while (indices.size() < count) {
        const auto run =
            std::min(static_cast<std::size_t>(uniform(random, 1, longest_run)), count - indices.size());
        indices.insert(indices.end(), run, static_cast<std::uint8_t>(uniform(random, 0, colours - 1)));
    }
    return indices;
}

/// The picture of that number: 1 to 256 colours, a table of its own.
inline GifPicture random_indexed_picture(int number) {
    std::mt19937 random(static_cast<unsigned>(number));
    GifPicture picture = random_size(random, number);
    const int colours = number % 3 == 0 ? 256 : uniform(random, 1, 256);
    for (int entry = 0; entry < colours; ++entry) {
        picture.palette.push_back({random_byte(random), random_byte(random), random_byte(random)});
    }
    const auto area = static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
    picture.indices = random_indices(random, area, colours);
    return picture;
}

/// The colours an indexed picture shows, row by row.
inline std::vector<RgbColour> shown_colours(const GifPicture& picture) {
    std::vector<RgbColour> colours;
    colours.reserve(picture.indices.size());
    for (const std::uint8_t index : picture.indices) {
        colours.push_back(index < picture.palette.size() ? picture.palette[index] : RgbColour{});
    }
    return colours;
}

} // namespace halvane::test
