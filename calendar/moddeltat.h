#pragma once

#include "calendar/switchguard.h"

namespace halvane {

/// Which time a Julian day handed to the engine is: 0 UT1, 1 dynamical time (TDT). Default 0. Every run
/// states its own through a TdtSpan; nothing else writes it. Single thread.
extern int tdtinput;

/// Sets `tdtinput` for the span of a run.
class TdtSpan {
public:
    [[nodiscard]] explicit TdtSpan(int value) : guard_(tdtinput, value) {}

private:
    SwitchGuard<int> guard_;
};

/// Delta T = TDT - UT1.
/// In     jd       Julian day, UT1 or TDT alike      [d]
/// Out    delta_t  [d]
/// Reads no switch and keeps no copy. A plain fractional year, no calendar; branches from -500 to 2150, a
/// parabola outside.
/// Source Espenak and Meeus, Five Millennium Canon of Solar Eclipses, NASA/TP-2006-214141.
void moddeltat(double jd, double& delta_t);

} // namespace halvane
