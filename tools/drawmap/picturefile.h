// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

#include <QImage>

namespace halvane {

/// Writes an opaque picture as a GIF file with the up to 256 colours that suit it best, without dithering.
/// Throws std::runtime_error that names the file it cannot write.
void save_as_gif(const QImage& picture, const std::filesystem::path& file_name);

} // namespace halvane
