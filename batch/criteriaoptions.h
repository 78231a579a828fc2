// SPDX-License-Identifier: MIT
#pragma once

#include "crescent/criteriacatalogue.h"
#include "finemap/finemap.h"

#include <optional>
#include <string>

namespace halvane {

// What options of the command line say of criteria and of parts of the world. All raise UsageMistake for what
// they cannot take.

/// "W,S,E,N" in degrees; E less than W crosses the date line. In     option  its name, for the mistake
MapWindow window_of_text(const std::string& option, const std::string& text);

/// What the user sets of a criterion.
/// In     criterion  its key
///        limits     of --limits: "lag=,altitude=5"; empty where it is not given
///        danjon     of --danjon                                                               [deg]
CriteriaSettings criteria_settings(const std::string& criterion, const std::string& limits,
                                   const std::optional<double>& danjon);

} // namespace halvane
