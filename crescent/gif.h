// SPDX-License-Identifier: MIT
#pragma once

#include "base/failure.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

namespace halvane {

/// A colour of a picture, each part from 0 to 255.
struct RgbColour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    bool operator==(const RgbColour&) const = default;
};

/// A picture in memory, top row first, without padding at the row ends.
///
/// Either `pixels` or `indices` is filled, with width times height entries. `palette` belongs to `indices`
/// and has at most 256 entries; an index beyond its end is black.
struct GifPicture {
    int width = 0;  ///< pixels, 1 to 65535
    int height = 0; ///< pixels, 1 to 65535
    std::vector<RgbColour> pixels;
    std::vector<std::uint8_t> indices;
    std::vector<RgbColour> palette;
};

/// Called once per row with the percentage of rows done, above 0 and up to 100. It may run the event loop.
using GifRowEvent = std::function<void(double percentage)>;

/// The bytes of the GIF file of a picture.
///
/// An indexed picture keeps its palette. A picture of 24-bit pixels takes, pixel by pixel, the nearest entry
/// of a fixed palette of 125 colours, the steps 0, 64, 128, 192, 255 in blue (outermost), green and red; of
/// two equally near entries the darker. With a `transparent` colour that stands in the colour table the file
/// is a GIF89a whose first such entry is transparent; otherwise it is a GIF87a.
///
/// Compression is variable-length LZW (CompuServe, Graphics Interchange Format, version 89a) with a table
/// that is cleared at 253 strings, so that every code is 9 bits long.
///
/// Returns nothing when the picture is not of the form GifPicture tells.
std::vector<std::uint8_t> gif_bytes(const GifPicture& picture,
                                    const std::optional<RgbColour>& transparent = std::nullopt,
                                    const GifRowEvent& row_done = {});

/// Writes pictures to GIF files. One object serves one save at a time and must outlive it.
class GIF {
public:
    /// Sets what is called once per row of a save.
    void on_row_done(GifRowEvent row_done);

    /// Writes the picture to a GIF file as gif_bytes() tells, replacing a file of that name in one step.
    ///
    /// The picture is taken by value: what the row event runs cannot end it. Returns false, and leaves an
    /// existing file as it was, when the picture is not valid, the file cannot be written, or a save of this
    /// object is already running. What the row event throws ends the save and reaches the caller.
    bool SaveGIF(GifPicture picture, std::filesystem::path file_name,
                 std::optional<RgbColour> transparent = std::nullopt);

    /// Why the file of the last save could not be written; nothing after a save that did not come so far.
    const std::optional<RunTimeFailure>& failure() const { return failure_; }

private:
    GifRowEvent row_done_;
    std::optional<RunTimeFailure> failure_;
    bool busy_ = false;
};

} // namespace halvane
