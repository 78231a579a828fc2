// SPDX-License-Identifier: MIT
#pragma once

#include "panel/panelsupport.h"

#include <span>

namespace halvane {

/// Every panel of the program that stands behind a button of the main panel.
std::span<const Panel> panels();

} // namespace halvane
