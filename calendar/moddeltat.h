// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// Delta T = TDT - UT1.
/// In     jd       Julian day, UT1 or TDT alike      [d]
/// Out    delta_t  [d]
/// Reads no switch and keeps no copy. A plain fractional year, no calendar; branches from -500 to 2150, a
/// parabola outside.
/// Source Espenak and Meeus, Five Millennium Canon of Solar Eclipses, NASA/TP-2006-214141.
void moddeltat(double jd, double& delta_t);

} // namespace halvane
