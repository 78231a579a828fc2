// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// The parabola through three ordinates at x = -1, 0, 1.
struct Parabola {
    double extremum_x = 0; ///< 0 for a straight line
    double extremum_y = 0; ///< 0 for a straight line
    double root1 = 0;      ///< with one root within -1 to 1 it is this one
    double root2 = 0;
    bool has_roots = false; ///< two roots, wherever they lie; a double root counts as none
    int roots_within = 0;   ///< roots within -1 to 1
};
Parabola parabola_through(double ym, double y0, double yp);

} // namespace halvane
