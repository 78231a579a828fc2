// SPDX-License-Identifier: MIT
#include "crescent/picturename.h"

#include "system/path.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace halvane {

namespace {

constexpr std::array<std::string_view, 11> picture_endings = {
    ".gif", ".bmp", ".png", ".jpg", ".jpeg", ".tif", ".tiff", ".webp", ".svg", ".ppm", ".xpm"};

} // namespace

std::string gif_name(const std::string& chosen) {
    const std::string ending = ending_of(chosen);
    const bool is_picture =
        std::find(picture_endings.begin(), picture_endings.end(), ending) != picture_endings.end();
    return chosen.substr(0, chosen.size() - (is_picture ? ending.size() : 0)) + ".gif";
}

} // namespace halvane
