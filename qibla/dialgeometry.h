// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// A point of the dial in the units of its design, y downwards                                  [twip]
struct DialPoint {
    double x = 0;
    double y = 0;
};

inline constexpr DialPoint dial_centre{3015, 3000};
inline constexpr double dial_line_length = 960;
inline constexpr double dial_radius = 1080;

/// Where the line from the dial's centre ends for a direction, north up and east to the right.
/// In     direction  from true north through east                                              [deg]
DialPoint dial_line_end(float direction);

} // namespace halvane
