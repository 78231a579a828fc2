// SPDX-License-Identifier: MIT
#pragma once

#include "panel/formlanguage.h"

#include <span>

namespace halvane {

/// The texts of `frmmonths`.
std::span<const ControlText> frmmonths_twins();

} // namespace halvane
