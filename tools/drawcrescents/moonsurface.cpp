// SPDX-License-Identifier: MIT
#include "tools/drawcrescents/moonsurface.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace halvane {
namespace {

constexpr double degree = std::numbers::pi / 180;

/// A round patch of the surface; degrees, east and north positive.
struct Patch {
    double longitude;
    double latitude;
    double radius;
    double change; ///< of the brightness at its middle
};

// Plains and ray craters with the places and sizes of the IAU Gazetteer of Planetary Nomenclature, large
// irregular plains as several patches.
constexpr std::array patches = {
    Patch{59.1, 17.0, 8.0, -0.42},    // Mare Crisium
    Patch{51.3, -7.8, 12.0, -0.34},   // Mare Fecunditatis
    Patch{35.5, -15.2, 5.6, -0.34},   // Mare Nectaris
    Patch{30.8, 8.5, 13.5, -0.42},    // Mare Tranquillitatis
    Patch{17.5, 28.0, 11.0, -0.38},   // Mare Serenitatis
    Patch{-15.6, 32.8, 18.5, -0.38},  // Mare Imbrium
    Patch{3.6, 13.3, 4.0, -0.30},     // Mare Vaporum
    Patch{-30.9, 7.5, 8.0, -0.28},    // Mare Insularum
    Patch{-23.1, -10.0, 6.2, -0.30},  // Mare Cognitum
    Patch{-16.6, -21.3, 11.5, -0.32}, // Mare Nubium
    Patch{-38.6, -24.4, 6.9, -0.38},  // Mare Humorum
    Patch{-57.0, 20.0, 15.0, -0.40},  // Oceanus Procellarum
    Patch{-50.0, 3.0, 13.0, -0.36},   Patch{-60.0, 40.0, 10.0, -0.30},
    Patch{-40.0, 58.0, 6.0, -0.24}, // Mare Frigoris
    Patch{-20.0, 57.0, 6.0, -0.24},   Patch{0.0, 56.0, 6.0, -0.24},
    Patch{20.0, 55.0, 6.0, -0.24},    Patch{36.0, 53.0, 5.0, -0.22},
    Patch{-68.3, -5.2, 3.0, -0.40}, // Grimaldi
    Patch{-9.4, 51.6, 1.8, -0.30},  // Plato
    Patch{86.0, 13.0, 6.0, -0.25},  // Mare Marginis
    Patch{87.0, -2.0, 6.0, -0.25},  // Mare Smythii
    Patch{-11.2, -43.3, 5.0, 0.25}, // Tycho
    Patch{-20.1, 9.6, 5.0, 0.24},   // Copernicus
    Patch{-38.0, 8.1, 3.5, 0.22},   // Kepler
    Patch{-47.5, 23.7, 2.8, 0.32},  // Aristarchus
    Patch{46.8, 16.1, 2.5, 0.20},   // Proclus
    Patch{61.0, -8.9, 3.0, 0.18},   // Langrenus
    Patch{5.7, -33.0, 14.0, 0.06},  // southern highlands
};

SpherePoint place_of(const Patch& patch) {
    const double longitude = patch.longitude * degree;
    const double latitude = patch.latitude * degree;
    return {std::cos(latitude) * std::sin(longitude), std::sin(latitude),
            std::cos(latitude) * std::cos(longitude)};
}

double smooth_step(double value) {
    const double clamped = std::clamp(value, 0.0, 1.0);
    return clamped * clamped * (3 - 2 * clamped);
}

/// A fixed number from -1 to 1 for each corner of a lattice.
double corner_value(int x, int y, int z) {
    std::uint32_t bits = static_cast<std::uint32_t>(x) * 0x8DA6B343U ^
                         static_cast<std::uint32_t>(y) * 0xD8163841U ^
                         static_cast<std::uint32_t>(z) * 0xCB1AB31FU;
    bits = (bits ^ bits >> 15) * 0x2C1B3C6DU;
    bits = (bits ^ bits >> 12) * 0x297A2D39U;
    bits ^= bits >> 15;
    return bits / 2147483647.5 - 1;
}

double mix(double from, double to, double share) {
    return from + (to - from) * share;
}

/// Smooth noise from -1 to 1 (value noise: Ebert and others, Texturing and Modeling, 2002, chapter 2).
double noise(const SpherePoint& point, double frequency) {
    const auto split = [frequency](double coordinate, int& cell) {
        const double scaled = coordinate * frequency + 100;
        cell = static_cast<int>(scaled);
        return smooth_step(scaled - cell);
    };
    int x = 0;
    int y = 0;
    int z = 0;
    const double along_x = split(point.east, x);
    const double along_y = split(point.north, y);
    const double along_z = split(point.toward, z);
    const auto edge = [&](int dy, int dz) {
        return mix(corner_value(x, y + dy, z + dz), corner_value(x + 1, y + dy, z + dz), along_x);
    };
    return mix(mix(edge(0, 0), edge(1, 0), along_y), mix(edge(0, 1), edge(1, 1), along_y), along_z);
}

double layered_noise(const SpherePoint& point, double frequency, int layers) {
    double sum = 0;
    double weight = 1;
    double total = 0;
    for (int layer = 0; layer < layers; ++layer) {
        sum += weight * noise(point, frequency);
        total += weight;
        weight *= 0.6;
        frequency *= 2.1;
    }
    return sum / total;
}

/// 1 inside the patch, 0 outside, with an uneven, soft border.
double share_of(const Patch& patch, const SpherePoint& point, double unevenness) {
    const SpherePoint place = place_of(patch);
    const double cosine = place.east * point.east + place.north * point.north + place.toward * point.toward;
    const double distance = std::acos(std::clamp(cosine, -1.0, 1.0)) / degree;
    const double softness = 0.4 * patch.radius;
    return smooth_step((patch.radius * (1 + 0.75 * unevenness) + softness - distance) / (2 * softness));
}

} // namespace

double surface_brightness(const SpherePoint& point) {
    const double unevenness = layered_noise(point, 4.2, 4);
    double darkest = 0;
    double brightest = 0;
    for (const Patch& patch : patches) {
        const double change = patch.change * share_of(patch, point, unevenness);
        darkest = std::min(darkest, change);
        brightest = std::max(brightest, change);
    }
    const double ground = 0.94 + 0.10 * layered_noise(point, 14, 3);
    return std::clamp(ground + darkest + brightest, 0.3, 1.1);
}

double surface_roughness(const SpherePoint& point) {
    return layered_noise(point, 22, 2);
}

} // namespace halvane
