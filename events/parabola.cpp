// SPDX-License-Identifier: MIT
#include "events/parabola.h"

#include <cmath>
#include <initializer_list>

namespace halvane {

Parabola parabola_through(double ym, double y0, double yp) {
    const double a = 0.5 * (ym + yp) - y0;
    const double b = 0.5 * (yp - ym);
    const double c = y0;
    Parabola parabola;
    if (a == 0)
        return parabola;
    const double xe = -b / (2 * a);
    parabola.extremum_x = xe;
    parabola.extremum_y = (a * xe + b) * xe + c;
    const double discriminant = b * b - 4 * a * c;
    if (!(discriminant > 0))
        return parabola;
    const double dx = 0.5 * std::sqrt(discriminant) / std::fabs(a);
    parabola.has_roots = true;
    parabola.root1 = xe - dx;
    parabola.root2 = xe + dx;
    for (const double root : {parabola.root1, parabola.root2})
        if (std::fabs(root) <= 1)
            ++parabola.roots_within;
    if (parabola.root1 < -1)
        parabola.root1 = parabola.root2;
    return parabola;
}

} // namespace halvane
