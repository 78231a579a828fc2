// SPDX-License-Identifier: MIT
#include "telescope/crescentpicture.h"

#include "base/failure.h"

namespace halvane {
namespace {

constexpr int picture_step = 10; // [deg]
constexpr int half_step = 5;     // [deg]

std::string direction_name(double zenith_angle) {
    for (int direction = picture_step; direction < 360; direction += picture_step)
        if (direction - half_step <= zenith_angle && zenith_angle < direction + half_step)
            return std::to_string(direction);
    return "00";
}

} // namespace

std::string crescent_picture(double zenith_angle, bool flip_horizontal, bool flip_vertical) {
    require_finite(zenith_angle, {"the crescent's direction", "اتجاه الهلال"});
    return direction_name(zenith_angle) + (flip_horizontal ? "h" : "") + (flip_vertical ? "v" : "") + ".gif";
}

} // namespace halvane
