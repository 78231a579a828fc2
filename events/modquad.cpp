#include "events/modquad.h"

#include <cmath>

namespace halvane {

int quadroots = 0;

void modquad(double ym, double y0, double yp, double& xe, double& ye, double& root1, double& root2,
             int& nroots) {
    const double a = 0.5 * (ym + yp) - y0;
    const double b = 0.5 * (yp - ym);
    const double c = y0;
    nroots = 0;
    quadroots = 0;
    if (a == 0) {
        xe = 0;
        ye = 0;
        return;
    }
    xe = -b / (2 * a);
    ye = (a * xe + b) * xe + c;
    const double discriminant = b * b - 4 * a * c;
    if (!(discriminant > 0))
        return;
    const double dx = 0.5 * std::sqrt(discriminant) / std::fabs(a);
    root1 = xe - dx;
    root2 = xe + dx;
    if (std::fabs(root1) <= 1)
        ++nroots;
    if (std::fabs(root2) <= 1)
        ++nroots;
    if (root1 < -1)
        root1 = root2;
    quadroots = nroots;
}

} // namespace halvane
