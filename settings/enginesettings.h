// SPDX-License-Identifier: MIT
#pragma once

#include "events/riseset.h"
#include "stored/loc.h"
#include "stored/pref.h"

namespace halvane {

/// The observer of a stored location.
Observer observer_of(const Location& location);

/// What the searches need of the stored settings.
Horizon horizon_of(const Preferences& preferences, const Location& location);

} // namespace halvane
