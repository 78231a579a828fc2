// SPDX-License-Identifier: MIT
#pragma once

#include "crescent/criteriacatalogue.h"
#include "halvane/crescent.h"

#include <string>

namespace halvane::v1 {

/// Error  raises Error (bad_argument) for a key that there is none of.
const CataloguedCriterion& criterion_of_key(const std::string& key);

/// Error  raises Error (bad_argument) for a limit out of range.
CriteriaSettings engine_limits(const CriterionLimits& limits);

} // namespace halvane::v1
