// SPDX-License-Identifier: MIT
#pragma once

#include "hijri/hijrirules.h"

#include <string>

namespace halvane {

// What of a rule's settings its months depend on and is not the usual: class, limits, part of the world and
// until when a crescent counts in it.

/// "-class-2-30.25w-10s-190e-45n-before-midnight"; empty where all is usual. Unlike settings have unlike
/// ones.
std::string unusual_key(const HijriSettings& settings);

/// " (lag 20 min; 30.25° W to 170° W, 10° S to 45° N; before midnight, Universal Time)";
/// empty where all is usual.
TwinWords unusual_words(const HijriSettings& settings);

} // namespace halvane
