// SPDX-License-Identifier: MIT
#pragma once

#include "ephemeris/ephemeris.h"
#include "stored/loc.h"

namespace halvane {

/// The engine that the named routines share: one thread, the series loaded last.
Ephemeris& named_ephemeris();

/// The moment that a Julian day of a named routine means: UT1, or TDT with `tdtinput` 1.
Instant named_instant(double jd);

/// The observer of `loc.vsk`.
const Observer& stored_observer();

} // namespace halvane
