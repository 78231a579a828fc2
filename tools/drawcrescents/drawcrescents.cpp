// SPDX-License-Identifier: MIT
// Draws the crescent turned by every multiple of 10 degrees, plain and in the three mirrored forms.

#include "tools/drawcrescents/crescentpicture.h"

#include <cstdio>
#include <filesystem>
#include <string>

namespace halvane {
namespace {

bool save(const GifPicture& picture, const std::filesystem::path& folder, const std::string& name) {
    GIF gif;
    if (gif.SaveGIF(picture, folder / (name + ".gif"))) {
        return true;
    }
    std::fprintf(stderr, "drawcrescents: cannot write %s.gif in %s\n", name.c_str(), folder.c_str());
    return false;
}

bool save_four_forms(int angle, const std::filesystem::path& folder) {
    const std::string name = angle == 0 ? "00" : std::to_string(angle);
    const GifPicture plain = crescent_picture(angle);
    const GifPicture mirrored = mirrored_left_to_right(plain);
    return save(plain, folder, name) && save(mirrored, folder, name + "h") &&
           save(mirrored_top_to_bottom(plain), folder, name + "v") &&
           save(mirrored_top_to_bottom(mirrored), folder, name + "hv");
}

} // namespace
} // namespace halvane

int main(int argc, char* argv[]) {
    if (argc != 2) {
        std::fputs("usage: drawcrescents <folder of the pictures>\n", stderr);
        return 2;
    }
    for (int angle = 0; angle < 360; angle += 10) {
        if (!halvane::save_four_forms(angle, argv[1])) {
            return 1;
        }
    }
    return 0;
}
