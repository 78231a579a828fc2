#pragma once

namespace halvane {

/// Root count of the last modquad call.
extern int quadroots;

/// Parabola through three ordinates at x = -1, 0, 1.
/// In     ym, y0, yp
/// Out    xe, ye        abscissa and ordinate of the extremum; 0 for a straight line
///        root1, root2  roots; with one root within -1 to 1 it is `root1`
///        nroots        roots within -1 to 1; a double root and a straight line count as none
/// Writes `quadroots`.
void modquad(double ym, double y0, double yp, double& xe, double& ye, double& root1, double& root2,
             int& nroots);

} // namespace halvane
