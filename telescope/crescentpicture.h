// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace halvane {

/// File name, within `images` of the program folder, of the picture whose lit limb is nearest to
/// `zenith_angle` [deg, 0 to below 360]: "00.gif" to "350.gif", with "h" and "v" before the point for the
/// flips.
/// Error  raises RunTimeFailure for an angle that is not finite.
std::string crescent_picture(double zenith_angle, bool flip_horizontal, bool flip_vertical);

} // namespace halvane
