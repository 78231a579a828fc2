// SPDX-License-Identifier: MIT
#pragma once

#include "crescent/gif.h"

namespace halvane {

/// The Moon's disc on a black sky, 200 x 200 pixels, zenith up. The middle of its lit limb lies at the zenith
/// angle, in degrees from the zenith toward the left (counter-clockwise), as an observer who faces the Moon
/// sees it. The rest of the disc shows faint earthshine.
GifPicture crescent_picture(double zenith_angle);

/// The picture with left and right exchanged.
GifPicture mirrored_left_to_right(GifPicture picture);

/// The picture with top and bottom exchanged.
GifPicture mirrored_top_to_bottom(GifPicture picture);

} // namespace halvane
