// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// A point of the unit sphere that faces the viewer: the Moon's east to the right, north up, `toward` the
/// viewer.
struct SpherePoint {
    double east = 0;
    double north = 0;
    double toward = 0;
};

/// How much light the surface gives back there, about 0.5 on the dark plains and 1 on the highlands.
double surface_brightness(const SpherePoint& point);

/// Unevenness of the ground there, -1 to 1, in patches the size of large craters.
double surface_roughness(const SpherePoint& point);

} // namespace halvane
