// SPDX-License-Identifier: MIT
#include "tools/drawcrescents/crescentpicture.h"

#include "tools/drawcrescents/moonsurface.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <utility>

namespace halvane {
namespace {

constexpr double degree = std::numbers::pi / 180;

constexpr int side = 200;
constexpr double centre = side / 2.0;
constexpr double disc_radius = 84;
constexpr int points_across = 5; // inside a pixel

constexpr double lit_fraction = 0.13;
constexpr double earthshine = 0.17;
constexpr double sunshine = 1.0;

/// How bright a sunlit point looks, 0 to 1, with the Sun behind the Moon's right side
/// (Lommel and Seeliger's law; Hapke, Theory of Reflectance and Emittance Spectroscopy, 1993).
double sunlit_brightness(const SpherePoint& point) {
    const double sun_toward = 2 * lit_fraction - 1;
    const double sun_east = std::sqrt(1 - sun_toward * sun_toward);
    const double ground = 0.035 * surface_roughness(point);
    const double sun_height = point.east * sun_east + point.toward * sun_toward + ground * point.toward;
    return sun_height > 0 ? sun_height / (sun_height + point.toward) : 0;
}

/// Display brightness, 0 to 1, of a point of the disc whose lit limb is at the right; radii from the centre.
double disc_brightness(double right, double up) {
    const double square = right * right + up * up;
    if (square >= 1) {
        return 0;
    }
    const SpherePoint point = {right, up, std::sqrt(1 - square)};
    const double surface = surface_brightness(point);
    const double lit = std::pow(sunlit_brightness(point), 0.42) * (0.66 + 0.34 * surface);
    const double faint = earthshine * surface * (0.82 + 0.18 * point.toward);
    return std::max(faint, 0.0) + (1 - faint) * sunshine * lit;
}

double pixel_brightness(int column, int row, double zenith_angle) {
    const double limb_right = -std::sin(zenith_angle * degree);
    const double limb_up = std::cos(zenith_angle * degree);
    double sum = 0;
    for (int across = 0; across < points_across; ++across) {
        for (int down = 0; down < points_across; ++down) {
            const double right = (column + (across + 0.5) / points_across - centre) / disc_radius;
            const double up = (centre - row - (down + 0.5) / points_across) / disc_radius;
            sum += disc_brightness(right * limb_right + up * limb_up, up * limb_right - right * limb_up);
        }
    }
    return sum / (points_across * points_across);
}

/// From black through the bluish grey of earthshine to the warm white of sunlight.
std::vector<RgbColour> brightness_palette() {
    const auto part = [](double share) { return static_cast<std::uint8_t>(std::lround(255 * share)); };
    std::vector<RgbColour> palette;
    palette.reserve(256);
    for (int entry = 0; entry < 256; ++entry) {
        const double brightness = entry / 255.0;
        const double warmth = std::clamp((brightness - 0.15) / 0.6, 0.0, 1.0);
        const double red = brightness * std::lerp(0.86, 1.0, warmth);
        const double green = brightness * std::lerp(0.93, 0.975, warmth);
        const double blue = brightness * std::lerp(1.12, 0.90, warmth);
        palette.push_back({part(red), part(green), part(blue)});
    }
    return palette;
}

} // namespace

GifPicture crescent_picture(double zenith_angle) {
    GifPicture picture;
    picture.width = side;
    picture.height = side;
    picture.palette = brightness_palette();
    picture.indices.reserve(static_cast<std::size_t>(side) * side);
    for (int row = 0; row < side; ++row) {
        for (int column = 0; column < side; ++column) {
            const double brightness = std::clamp(pixel_brightness(column, row, zenith_angle), 0.0, 1.0);
            picture.indices.push_back(static_cast<std::uint8_t>(std::lround(255 * brightness)));
        }
    }
    return picture;
}

GifPicture mirrored_left_to_right(GifPicture picture) {
    for (auto row = picture.indices.begin(); row != picture.indices.end(); row += picture.width) {
        std::reverse(row, row + picture.width);
    }
    return picture;
}

GifPicture mirrored_top_to_bottom(GifPicture picture) {
    std::reverse(picture.indices.begin(), picture.indices.end());
    return mirrored_left_to_right(std::move(picture));
}

} // namespace halvane
