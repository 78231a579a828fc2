// SPDX-License-Identifier: MIT
#pragma once

#include "halvane/crescent.h"
#include "halvane/halvane.h"

namespace halvane::v1 {

/// The limits of a C program; the usual ones for a null pointer.
CriterionLimits limits_of(const halvane_criterion_limits* limits);

/// The library's own text of a criterion's key; an empty one for a key that there is none of.
const char* lasting_criterion_key(const std::string& key);

} // namespace halvane::v1
