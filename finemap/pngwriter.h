// SPDX-License-Identifier: MIT
#pragma once

#include "finemap/mapdocument.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace halvane {

/// Writes a PNG picture of 8 bits for each of red, green and blue row by row, so that a picture of any height
/// needs the memory of two rows.
/// Source  Portable Network Graphics, W3C Recommendation, second edition (2003).
class PngWriter {
public:
    /// In     dots_per_metre  the size that the picture is meant to have on paper
    PngWriter(std::uint32_t width, std::uint32_t height, std::uint32_t dots_per_metre, TakeBytes take);
    PngWriter(const PngWriter&) = delete;
    PngWriter& operator=(const PngWriter&) = delete;
    ~PngWriter();

    /// Writes the next row. In     row  red, green, blue of each pixel
    void row(std::span<const std::uint8_t> row);
    /// Writes the end, after as many rows as the picture is high.
    void finish();

private:
    struct Compressor;
    void compress(bool is_end);
    void write_chunk(std::string_view type, std::string_view data) const;

    TakeBytes take_;
    std::vector<std::uint8_t> above_;    ///< the row before
    std::vector<std::uint8_t> filtered_; ///< the filter's number and the row
    std::unique_ptr<Compressor> compressor_;
};

} // namespace halvane
